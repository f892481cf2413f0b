#include "RowListTest.h"

#include <QApplication>

#include <vector>

namespace
{

/// The focus in lists that create and delete rows as they scroll.
class RowListFocusTest : public RowListTest
{
};

TEST_F(RowListFocusTest, TabVisitsEveryRowOfALongListInOrder)
{
    fill(150);
    show();
    above->setFocus(Qt::TabFocusReason);
    for (int index = 0; index < 150; ++index) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        processEvents();
        ASSERT_NE(row(index), nullptr);
        ASSERT_EQ(QApplication::focusWidget(), row(index)->button);
        ASSERT_TRUE(inView(row(index)));
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), below);
    for (int index = 149; index >= 0; --index) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        processEvents();
        ASSERT_NE(row(index), nullptr);
        ASSERT_EQ(QApplication::focusWidget(), row(index)->button);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget(), above);
}

TEST_F(RowListFocusTest, TheRowWithTheFocusStaysWhenItIsScrolledOutOfView)
{
    fill(1000);
    show();
    row(1)->button->setFocus();
    scrollTo(20000);
    ASSERT_NE(row(1), nullptr);
    EXPECT_TRUE(row(1)->button->hasFocus());
    EXPECT_EQ(row(0), nullptr);
    QTest::keyClick(row(1)->button, Qt::Key_Tab);
    processEvents();
    ASSERT_NE(row(2), nullptr);
    EXPECT_TRUE(row(2)->button->hasFocus());
    EXPECT_TRUE(inView(row(2)));
}

TEST_F(RowListFocusTest, TheFocusReturnsWithTheWindowToARowScrolledOutMeanwhile)
{
    fill(1000);
    show();
    row(1)->button->setFocus();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    scrollTo(20000);
    area.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&area));
    ASSERT_NE(row(1), nullptr);
    EXPECT_TRUE(row(1)->button->hasFocus());
}

TEST_F(RowListFocusTest, TabGoesFromAKeptRowToTheNextOne)
{
    fill(1000);
    show();
    keptRow = row(1);
    row(2)->button->setFocus();
    scrollTo(20000);
    QTest::keyClick(row(2)->button, Qt::Key_Backtab);
    EXPECT_TRUE(row(1)->button->hasFocus());
    EXPECT_TRUE(inView(row(1)));
    QTest::keyClick(row(1)->button, Qt::Key_Backtab);
    EXPECT_TRUE(row(0)->button->hasFocus());
}

} // namespace
