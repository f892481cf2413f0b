#pragma once

#include "Components/RowList.h"

#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <map>
#include <vector>

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

/// A page that scrolls: a button, the list, another button.
class RowListTest : public testing::Test
{
protected:
    static constexpr int rowHeight = 40;
    static constexpr int dividerHeight = 1;

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
