#include "Platform/Window/Accessibility/AccessibleRole.h"

#include "Platform/Window/Accessibility/AccessibleWidget.h"

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include <gtest/gtest.h>

#include <initializer_list>

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

TEST(AccessibleRole, PartsAreJoinedWhenTheyAreAskedFor)
{
    QPushButton button;
    button.setAccessibleName(u"Actions"_s);
    button.setAccessibleDescription(u"Menu"_s);
    QWidget row;
    setAccessibleRole(&row, QAccessible::Grouping);
    for (QWidget *widget : std::initializer_list<QWidget *>{&button, &row}) {
        changeAccessibleNameParts(widget, {u"Actions for "_s, u"App"_s});
        changeAccessibleDescriptionParts(widget, {u"/app"_s, u", missing"_s});
    }
    const AccessibleButton ofButton(&button);
    const QAccessibleInterface *ofRow = QAccessible::queryAccessibleInterface(&row);
    for (const auto *tree : std::initializer_list<const QAccessibleInterface *>{&ofButton, ofRow}) {
        EXPECT_EQ(tree->text(QAccessible::Name), u"Actions for App");
        EXPECT_EQ(tree->text(QAccessible::Description), u"/app, missing");
        EXPECT_EQ(tree->text(QAccessible::Value), u"");
    }
    const QString longest(qsizetype{16} << 20, u'x');
    changeAccessibleNameParts(&button, {longest, u"yz"_s});
    EXPECT_EQ(ofButton.text(QAccessible::Name), longest + QChar(0x2026)) << "what a message can carry";
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
