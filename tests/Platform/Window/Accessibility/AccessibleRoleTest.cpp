#include "Platform/Window/Accessibility/AccessibleRole.h"

#include "Platform/Window/Accessibility/AccessibleWidget.h"

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

TEST(AccessibleRole, AWidgetHasTheRoleItWasGiven)
{
    QWidget page;
    setAccessibleRole(&page, QAccessible::Pane);
    page.setAccessibleName(u"General"_s);
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&page);
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::Pane);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"General"_s);
}

TEST(AccessibleRole, OtherWidgetsKeepTheirs)
{
    QWidget page;
    setAccessibleRole(&page, QAccessible::Pane);
    QLabel label(u"Typeface"_s);
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&label);
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::StaticText);
}

TEST(AccessibleRole, WidgetsThatOnlyLayOutAreNoPartOfTheTree)
{
    QWidget page;
    setAccessibleRole(&page, QAccessible::Grouping);
    QWidget row(&page);
    QWidget column(&row);
    QLabel label(u"Typeface"_s, &column);
    setAccessibleRole(&label, QAccessible::StaticText);
    QWidget tile(&row);
    markAsDecoration(&tile);

    QAccessibleInterface *tree = QAccessible::queryAccessibleInterface(&page);
    ASSERT_EQ(tree->childCount(), 1);
    EXPECT_EQ(tree->child(0)->object(), &label);
    EXPECT_EQ(tree->child(0)->parent(), tree);
    EXPECT_EQ(tree->indexOfChild(tree->child(0)), 0);
}

TEST(AccessibleRole, ATextIsTiedToTheControlThatItDescribes)
{
    QWidget page;
    QWidget control(&page);
    QLabel text(u"Before."_s, &page);
    setAccessibleRole(&text, QAccessible::StaticText);
    setDescribes(&text, &control);
    const auto relations = QAccessible::queryAccessibleInterface(&text)->relations(QAccessible::AllRelations);
    ASSERT_EQ(relations.size(), 1);
    EXPECT_EQ(relations.first().first->object(), &control);
}

TEST(AccessibleRole, ASpokenNameLabelsAButtonThatKeepsItsName)
{
    QPushButton button;
    setSpokenName(&button, u"Default Shift Command J"_s);
    button.setAccessibleName(u"Default ⇧⌘J"_s);
    AccessibleButton tree(&button);
    const auto relations = tree.relations(QAccessible::Label);
    ASSERT_EQ(relations.size(), 1);
    EXPECT_EQ(relations.first().first->text(QAccessible::Name), u"Default Shift Command J");
    EXPECT_EQ(tree.text(QAccessible::Name), u"Default ⇧⌘J");
}

} // namespace
