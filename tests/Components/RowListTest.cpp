#include "RowListTest.h"

#include <QAccessible>

#include <vector>

namespace
{

TEST_F(RowListTest, AHundredRowsAreAllCreated)
{
    fill(100);
    show();
    EXPECT_EQ(list->createdCount(), 100);
    scrollTo(1000);
    EXPECT_EQ(list->createdCount(), 100);
    EXPECT_EQ(madeCount, 100);
}

TEST_F(RowListTest, OfMoreThanAHundredRowsOnlyThoseInViewExist)
{
    fill(101);
    show();
    for (const int position : {0, 1, 777, 2000, area.verticalScrollBar()->maximum()}) {
        scrollTo(position);
        EXPECT_EQ(createdRows(), expectedInView()) << "scrolled to " << position;
    }
    EXPECT_LT(list->createdCount(), 15);
}

TEST_F(RowListTest, OfRowsWithVeryLongTextsOnlyThoseInViewExist)
{
    textLength = 401;
    fill(50);
    show();
    for (const int position : {0, 1, 777, area.verticalScrollBar()->maximum()}) {
        scrollTo(position);
        EXPECT_EQ(createdRows(), expectedInView()) << "scrolled to " << position;
    }
    EXPECT_LT(list->createdCount(), 15);
}

TEST_F(RowListTest, TheLengthsOfTheTextsAreAskedForAgainWhenTheIdsChange)
{
    textLength = 400;
    fill(50);
    show();
    EXPECT_EQ(list->createdCount(), 50) << "20,000 characters are not too many";
    fill(51);
    processEvents();
    EXPECT_EQ(createdRows(), expectedInView());
    textLength = 10;
    fill(51);
    processEvents();
    EXPECT_EQ(list->createdCount(), 51);
}

TEST_F(RowListTest, RowsOutOfViewAreNotInTheAccessibilityTree)
{
    fill(1000);
    show();
    scrollTo(5000);
    QAccessibleInterface *tree = QAccessible::queryAccessibleInterface(list);
    int buttons = 0;
    for (int child = 0; child < tree->childCount(); ++child)
        buttons += dynamic_cast<ButtonRow *>(tree->child(child)->object()->parent()) != nullptr;
    EXPECT_EQ(buttons, list->createdCount());
}

TEST_F(RowListTest, TheRowsAreChildrenInOrderWhicheverWayTheListIsScrolled)
{
    fill(1000);
    show();
    scrollTo(5000);
    scrollTo(4800);
    std::vector<int> numbers;
    for (const QObject *child : list->children()) {
        if (const auto *each = dynamic_cast<const ButtonRow *>(child))
            numbers.push_back(each->button->text().toInt());
    }
    EXPECT_GT(numbers.size(), 5U);
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
}

TEST_F(RowListTest, TenThousandRowsTakeTheirWholeHeight)
{
    fill(10000);
    show();
    EXPECT_EQ(list->height(), 10000 * (rowHeight + dividerHeight) - dividerHeight);
    scrollTo(area.verticalScrollBar()->maximum());
    ASSERT_NE(row(9999), nullptr);
    EXPECT_EQ(row(9999)->geometry().bottom(), list->rect().bottom());
    EXPECT_TRUE(inView(row(9999)));
}

TEST_F(RowListTest, ExpectedHeightsAreAskedForAgainWhenTheFontChanges)
{
    fill(1000);
    show();
    expectedHeight = 60;
    QFont larger = list->font();
    larger.setPixelSize(30);
    list->setFont(larger);
    processEvents();
    const int measured = int(list->createdCount()) * (rowHeight + dividerHeight);
    const int others = (1000 - int(list->createdCount())) * (expectedHeight + dividerHeight);
    EXPECT_EQ(list->sizeHint().height(), measured + others - dividerHeight);
}

TEST_F(RowListTest, ARowIsKeptWhileItsIdStays)
{
    fill(5);
    show();
    QWidget *third = list->row(2);
    const std::vector<QUuid> before = ids;
    ids = {before[4], QUuid::createUuid(), before[2]};
    list->setIds(ids);
    processEvents();
    EXPECT_EQ(list->row(2), third);
    EXPECT_EQ(row(2)->button->text(), u"2");
    EXPECT_EQ(row(0)->id, before[4]);
    EXPECT_EQ(madeCount, 6);
    EXPECT_LT(row(1)->y(), row(2)->y());
}

TEST_F(RowListTest, SettingTheSameIdsUpdatesTheSameRows)
{
    fill(3);
    row(1)->button->setText({});
    list->setIds(ids);
    EXPECT_EQ(row(1)->button->text(), u"1");
    EXPECT_EQ(madeCount, 3);
}

TEST_F(RowListTest, EqualIdsHaveARowEach)
{
    fill(3);
    ids = {ids[0], ids[0], ids[0]};
    list->setIds(ids);
    EXPECT_EQ(list->createdCount(), 3);
}

TEST_F(RowListTest, AListMayShrinkAndGrowAcrossAHundredRows)
{
    fill(5000);
    show();
    scrollTo(100000);
    fill(3);
    processEvents();
    EXPECT_EQ(list->createdCount(), 3);
    EXPECT_EQ(list->height(), 3 * (rowHeight + dividerHeight) - dividerHeight);
    fill(5000);
    processEvents();
    EXPECT_EQ(createdRows(), expectedInView());
    fill(0);
    processEvents();
    EXPECT_EQ(list->createdCount(), 0);
    EXPECT_EQ(list->height(), 0);
}

TEST_F(RowListTest, ARowThatMustBeKeptExistsOutOfViewUntilItsIdIsGone)
{
    fill(1000);
    show();
    keptRow = row(1);
    scrollTo(20000);
    EXPECT_EQ(row(0), nullptr);
    EXPECT_EQ(row(1), keptRow);
    EXPECT_FALSE(inView(keptRow));
    fill(1000);
    EXPECT_EQ(row(1), nullptr);
}

TEST_F(RowListTest, ARowTallerThanExpectedMovesThoseBelow)
{
    fill(1000);
    heights[ids[1]] = rowHeight + 26;
    show();
    EXPECT_EQ(row(1)->height(), rowHeight + 26);
    EXPECT_EQ(row(2)->y(), 2 * (rowHeight + dividerHeight) + 26);
    EXPECT_EQ(list->height(), 1000 * (rowHeight + dividerHeight) - dividerHeight + 26);
}

TEST_F(RowListTest, RowsInViewDoNotJumpWhenARowAboveIsTallerThanExpected)
{
    fill(1000);
    show();
    scrollTo(20000);
    const qsizetype first = createdRows().front();
    heights[ids[size_t(first) - 1]] = rowHeight + 26;
    QWidget *seen = row(first + 2);
    const int before = seen->mapTo(area.viewport(), QPoint()).y();
    scrollTo(20000 - rowHeight); // the taller row comes into view at the top
    const int moved = seen->mapTo(area.viewport(), QPoint()).y() - before;
    EXPECT_GE(moved, rowHeight);
    scrollTo(area.verticalScrollBar()->value() + 100);
    EXPECT_EQ(seen->mapTo(area.viewport(), QPoint()).y(), before + moved - 100);
}

TEST_F(RowListTest, ARowMayGrowLater)
{
    fill(3);
    show();
    row(0)->wantedHeight = rowHeight + 20;
    row(0)->updateGeometry();
    processEvents();
    EXPECT_EQ(row(0)->height(), rowHeight + 20);
    EXPECT_EQ(row(1)->y(), rowHeight + 20 + dividerHeight);
}

TEST_F(RowListTest, AHiddenListCreatesNoRowsUntilItIsShown)
{
    fill(1000);
    EXPECT_EQ(madeCount, 0);
    show();
    EXPECT_GT(madeCount, 0);
    area.hide();
    madeCount = 0;
    fill(1000);
    EXPECT_EQ(madeCount, 0);
    EXPECT_EQ(list->createdCount(), 0);
    area.show();
    processEvents();
    EXPECT_EQ(createdRows(), expectedInView());
}

TEST_F(RowListTest, ALargerWindowBringsMoreRowsIntoView)
{
    fill(1000);
    show();
    const qsizetype before = list->createdCount();
    area.resize(300, 800);
    processEvents();
    EXPECT_GT(list->createdCount(), before);
    EXPECT_EQ(createdRows(), expectedInView());
}

} // namespace
