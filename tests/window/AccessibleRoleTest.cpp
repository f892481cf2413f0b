#include "Platform/Window/AccessibleRole.h"

#include <QLabel>
#include <QWidget>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

TEST(AccessibleRole, AWidgetIsHeardAsWhatItWasSaidToBe)
{
    QWidget page;
    setAccessibleRole(&page, QAccessible::Pane);
    page.setAccessibleName(u"General"_s);
    const QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(&page);
    ASSERT_TRUE(heard);
    EXPECT_EQ(heard->role(), QAccessible::Pane);
    EXPECT_EQ(heard->text(QAccessible::Name), u"General"_s);
}

TEST(AccessibleRole, OtherWidgetsKeepTheirs)
{
    QWidget page;
    setAccessibleRole(&page, QAccessible::Pane);
    QLabel label(u"Typeface"_s);
    const QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(&label);
    ASSERT_TRUE(heard);
    EXPECT_EQ(heard->role(), QAccessible::StaticText);
}

} // namespace
