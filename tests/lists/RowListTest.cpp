#include "Components/RowList.h"

#include <QAccessible>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace
{

constexpr int rowHeight = 40;
constexpr int dividerHeight = 1;

/// A row with one button; its text says which item it stands for.
class ButtonRow : public QWidget
{
public:
    ButtonRow(const QUuid &itsId, int height, QWidget *parent) : QWidget(parent), id(itsId), wanted(height)
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(button);
    }

    QSize sizeHint() const override { return {0, wanted}; }

    QUuid id;
    int wanted;
    QPushButton *button = new QPushButton(this);
};

/// A page that scrolls: a button, the list, another button->
class RowListTest : public testing::Test
{
protected:
    RowListTest()
    {
        auto *page = new QWidget;
        auto *layout = new QVBoxLayout(page);
        layout->addWidget(above);
        layout->addWidget(list);
        layout->addWidget(below);
        area.setWidgetResizable(true);
        area.setWidget(page);
        area.resize(300, 400);
    }

    void fill(int count)
    {
        ids.resize(size_t(count));
        for (QUuid &id : ids)
            id = QUuid::createUuid();
        list->setIds(ids);
    }

    void show()
    {
        area.show();
        area.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&area));
        turn();
    }

    static void turn()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void scrollTo(int value)
    {
        area.verticalScrollBar()->setValue(value);
        turn();
    }

    ButtonRow *row(qsizetype index) const { return static_cast<ButtonRow *>(list->row(index)); }

    bool inView(const QWidget *widget) const
    {
        const QRect place(widget->mapTo(area.viewport(), QPoint()), widget->size());
        return area.viewport()->rect().intersects(place);
    }

    /// The items whose place in the list is in view, by arithmetic.
    std::vector<qsizetype> expectedInView() const
    {
        const int from = list->mapFrom(area.viewport(), QPoint()).y();
        std::vector<qsizetype> expected;
        for (qsizetype index = 0; index < qsizetype(ids.size()); ++index) {
            const int top = int(index) * (rowHeight + dividerHeight);
            if (top + rowHeight + dividerHeight > from && top < from + area.viewport()->height())
                expected.push_back(index);
        }
        return expected;
    }

    std::vector<qsizetype> createdRows() const
    {
        std::vector<qsizetype> existing;
        for (qsizetype index = 0; index < qsizetype(ids.size()); ++index) {
            if (list->row(index))
                existing.push_back(index);
        }
        return existing;
    }

    std::vector<QUuid> ids;
    std::map<QUuid, int> heights; ///< of rows that are not as high as expected
    int expectedHeight = rowHeight;
    int made = 0;
    QWidget *edited = nullptr; ///< a row with a state of its own
    QPushButton *above = new QPushButton;
    QPushButton *below = new QPushButton;
    RowList *list = new RowList({
        .make =
            [this](qsizetype index, QWidget *parent) {
                ++made;
                const QUuid id = ids[size_t(index)];
                return new ButtonRow(id, heights.contains(id) ? heights[id] : rowHeight, parent);
            },
        .show =
            [](QWidget *row, qsizetype index) {
                static_cast<ButtonRow *>(row)->button->setText(QString::number(index));
            },
        .expectedHeights = [this] { return [height = expectedHeight](qsizetype) { return height; }; },
        .mustKeep = [this](const QWidget *row) { return row == edited; },
    });
    QScrollArea area;
};

TEST_F(RowListTest, AHundredRowsAllExist)
{
    fill(100);
    show();
    EXPECT_EQ(list->createdCount(), 100);
    scrollTo(1000);
    EXPECT_EQ(list->createdCount(), 100);
    EXPECT_EQ(made, 100);
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

TEST_F(RowListTest, RowsOutOfViewAreOutOfTheTree)
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

TEST_F(RowListTest, TheTreeHasTheRowsInOrderWhicheverWayTheyCameIntoView)
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

TEST_F(RowListTest, TenThousandRowsTakeTheirWholePlace)
{
    fill(10000);
    show();
    EXPECT_EQ(list->height(), 10000 * (rowHeight + dividerHeight) - dividerHeight);
    scrollTo(area.verticalScrollBar()->maximum());
    ASSERT_NE(row(9999), nullptr);
    EXPECT_EQ(row(9999)->geometry().bottom(), list->rect().bottom());
    EXPECT_TRUE(inView(row(9999)));
}

TEST_F(RowListTest, RowsOutOfViewAreExpectedAnewWhenTheFontChanges)
{
    fill(1000);
    show();
    expectedHeight = 60;
    QFont larger = list->font();
    larger.setPixelSize(30);
    list->setFont(larger);
    turn();
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
    turn();
    EXPECT_EQ(list->row(2), third);
    EXPECT_EQ(row(2)->button->text(), u"2");
    EXPECT_EQ(row(0)->id, before[4]);
    EXPECT_EQ(made, 6);
    EXPECT_LT(row(1)->y(), row(2)->y());
}

TEST_F(RowListTest, TheSameIdsAreShownAnewByTheSameRows)
{
    fill(3);
    row(1)->button->setText({});
    list->setIds(ids);
    EXPECT_EQ(row(1)->button->text(), u"1");
    EXPECT_EQ(made, 3);
}

TEST_F(RowListTest, EqualIdsDoNoHarm)
{
    fill(3);
    ids = {ids[0], ids[0], ids[0]};
    list->setIds(ids);
    EXPECT_EQ(list->createdCount(), 3);
}

TEST_F(RowListTest, AListThatShrinksAndGrowsAcrossAHundred)
{
    fill(5000);
    show();
    scrollTo(100000);
    fill(3);
    turn();
    EXPECT_EQ(list->createdCount(), 3);
    EXPECT_EQ(list->height(), 3 * (rowHeight + dividerHeight) - dividerHeight);
    fill(5000);
    turn();
    EXPECT_EQ(createdRows(), expectedInView());
    fill(0);
    turn();
    EXPECT_EQ(list->createdCount(), 0);
    EXPECT_EQ(list->height(), 0);
}

TEST_F(RowListTest, TabVisitsEveryRowOfALongListInOrder)
{
    fill(150);
    show();
    above->setFocus(Qt::TabFocusReason);
    for (int index = 0; index < 150; ++index) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        turn();
        ASSERT_NE(row(index), nullptr);
        ASSERT_EQ(QApplication::focusWidget(), row(index)->button);
        ASSERT_TRUE(inView(row(index)));
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), below);
    for (int index = 149; index >= 0; --index) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        turn();
        ASSERT_NE(row(index), nullptr);
        ASSERT_EQ(QApplication::focusWidget(), row(index)->button);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget(), above);
}

TEST_F(RowListTest, TheRowWithTheKeyboardStaysWhenItIsScrolledOut)
{
    fill(1000);
    show();
    row(1)->button->setFocus();
    scrollTo(20000);
    ASSERT_NE(row(1), nullptr);
    EXPECT_TRUE(row(1)->button->hasFocus());
    EXPECT_EQ(row(0), nullptr);
    QTest::keyClick(row(1)->button, Qt::Key_Tab);
    turn();
    ASSERT_NE(row(2), nullptr);
    EXPECT_TRUE(row(2)->button->hasFocus());
    EXPECT_TRUE(inView(row(2)));
}

TEST_F(RowListTest, TheRowThatGetsTheKeyboardBackStaysWhenItIsScrolledOutMeanwhile)
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

TEST_F(RowListTest, ARowWithAStateOfItsOwnStaysOutOfViewUntilItsIdIsGone)
{
    fill(1000);
    show();
    edited = row(1);
    scrollTo(20000);
    EXPECT_EQ(row(0), nullptr);
    EXPECT_EQ(row(1), edited);
    EXPECT_FALSE(inView(edited));
    fill(1000);
    EXPECT_EQ(row(1), nullptr);
}

TEST_F(RowListTest, TabGoesFromAKeptRowToTheNextOne)
{
    fill(1000);
    show();
    edited = row(1);
    row(2)->button->setFocus();
    scrollTo(20000);
    QTest::keyClick(row(2)->button, Qt::Key_Backtab);
    EXPECT_TRUE(row(1)->button->hasFocus());
    EXPECT_TRUE(inView(row(1)));
    QTest::keyClick(row(1)->button, Qt::Key_Backtab);
    EXPECT_TRUE(row(0)->button->hasFocus());
}

TEST_F(RowListTest, ARowHigherThanExpectedMovesThoseBelow)
{
    fill(1000);
    heights[ids[1]] = rowHeight + 26;
    show();
    EXPECT_EQ(row(1)->height(), rowHeight + 26);
    EXPECT_EQ(row(2)->y(), 2 * (rowHeight + dividerHeight) + 26);
    EXPECT_EQ(list->height(), 1000 * (rowHeight + dividerHeight) - dividerHeight + 26);
}

TEST_F(RowListTest, WhatIsInViewDoesNotJumpWhenARowAboveTurnsOutHigher)
{
    fill(1000);
    show();
    scrollTo(20000);
    const qsizetype first = createdRows().front();
    heights[ids[size_t(first) - 1]] = rowHeight + 26;
    QWidget *seen = row(first + 2);
    const int before = seen->mapTo(area.viewport(), QPoint()).y();
    scrollTo(20000 - rowHeight); // the higher row comes into view at the top
    const int moved = seen->mapTo(area.viewport(), QPoint()).y() - before;
    EXPECT_GE(moved, rowHeight);
    scrollTo(area.verticalScrollBar()->value() + 100);
    EXPECT_EQ(seen->mapTo(area.viewport(), QPoint()).y(), before + moved - 100);
}

TEST_F(RowListTest, ARowMayGrowLater)
{
    fill(3);
    show();
    row(0)->wanted = rowHeight + 20;
    row(0)->updateGeometry();
    turn();
    EXPECT_EQ(row(0)->height(), rowHeight + 20);
    EXPECT_EQ(row(1)->y(), rowHeight + 20 + dividerHeight);
}

TEST_F(RowListTest, AHiddenListMakesNoRowsUntilItIsShown)
{
    fill(1000);
    EXPECT_EQ(made, 0);
    show();
    EXPECT_GT(made, 0);
    area.hide();
    made = 0;
    fill(1000);
    EXPECT_EQ(made, 0);
    EXPECT_EQ(list->createdCount(), 0);
    area.show();
    turn();
    EXPECT_EQ(createdRows(), expectedInView());
}

TEST_F(RowListTest, ALargerWindowBringsMoreRowsIntoView)
{
    fill(1000);
    show();
    const qsizetype before = list->createdCount();
    area.resize(300, 800);
    turn();
    EXPECT_GT(list->createdCount(), before);
    EXPECT_EQ(createdRows(), expectedInView());
}

} // namespace
