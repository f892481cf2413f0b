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

/// A row with one button, whose text is the index of the row.
class ButtonRow : public QWidget
{
public:
    ButtonRow(const QUuid &itsId, int height, QWidget *parent)
        : QWidget(parent), id(itsId), wantedHeight(height)
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(button);
    }

    QSize sizeHint() const override { return {0, wantedHeight}; }

    QUuid id;
    int wantedHeight;
    QPushButton *button = new QPushButton(this);
};

/// A list in a page that scrolls, between two buttons.
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
        processEvents();
    }

    static void processEvents()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void scrollTo(int value)
    {
        area.verticalScrollBar()->setValue(value);
        processEvents();
    }

    ButtonRow *row(qsizetype index) const { return static_cast<ButtonRow *>(list->row(index)); }

    bool inView(const QWidget *widget) const
    {
        const QRect place(widget->mapTo(area.viewport(), QPoint()), widget->size());
        return area.viewport()->rect().intersects(place);
    }

    /// The indices of the rows in view, computed from the height of a row.
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
        std::vector<qsizetype> created;
        for (qsizetype index = 0; index < qsizetype(ids.size()); ++index) {
            if (list->row(index))
                created.push_back(index);
        }
        return created;
    }

    std::vector<QUuid> ids;
    std::map<QUuid, int> heights; ///< of rows whose height is not the expected one
    int expectedHeight = rowHeight;
    qsizetype textLength = 0; ///< of each row
    int madeCount = 0;
    QWidget *keptRow = nullptr; ///< the row that the delegate keeps
    QPushButton *above = new QPushButton;
    QPushButton *below = new QPushButton;
    RowList *list = new RowList({
        .make =
            [this](qsizetype index, QWidget *parent) {
                ++madeCount;
                const QUuid id = ids[size_t(index)];
                return new ButtonRow(id, heights.contains(id) ? heights[id] : rowHeight, parent);
            },
        .show =
            [](QWidget *row, qsizetype index) {
                static_cast<ButtonRow *>(row)->button->setText(QString::number(index));
            },
        .expectedHeights = [this] { return [height = expectedHeight](qsizetype) { return height; }; },
        .textLength = [this](qsizetype) { return textLength; },
        .mustKeep = [this](const QWidget *row) { return row == keptRow; },
    });
    QScrollArea area;
};
