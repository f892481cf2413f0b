#include "Components/RowList.h"

#include "Components/SettingsRow.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"

#include <QEvent>
#include <QHash>
#include <QLayout>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{

int heightOf(const QWidget *row, int width)
{
    return row->hasHeightForWidth() ? row->heightForWidth(width) : row->sizeHint().height();
}

/// The control of a row that Tab goes to. It is not the row's focus proxy: Tab would reach it a second time,
/// at the row's own place in the focus chain.
QWidget *controlOf(QWidget *row)
{
    for (QWidget *child : row->findChildren<QWidget *>()) {
        if (child->focusPolicy() & Qt::TabFocus)
            return child;
    }
    return row;
}

bool holds(const QWidget *row, const QWidget *widget)
{
    return widget && (row == widget || row->isAncestorOf(widget));
}

} // namespace

RowList::RowList(RowDelegate delegate, QWidget *parent)
    : QWidget(parent), m_delegate(std::move(delegate)), m_start(new QWidget(this))
{
    m_start->setFocusPolicy(Qt::TabFocus);
    m_start->hide();
    markAsDecoration(m_start);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

RowList::~RowList() = default;

void RowList::setIds(std::vector<QUuid> ids)
{
    if (ids != m_ids) {
        keepRows(ids);
        m_ids = std::move(ids);
        m_isVirtualized = mustVirtualize();
        expectHeights();
    }
    for (const auto &[index, row] : m_rows)
        m_delegate.show(row.widget, index);
    refresh();
}

QWidget *RowList::row(qsizetype index) const
{
    const auto found = m_rows.find(index);
    return found == m_rows.end() ? nullptr : found->second.widget;
}

QSize RowList::sizeHint() const
{
    return {0, m_geometry.totalHeight()};
}

/// Moves the rows whose ids stay to their new places and discards the others.
void RowList::keepRows(const std::vector<QUuid> &ids)
{
    QHash<QUuid, qsizetype> places;
    if (!m_rows.empty()) {
        places.reserve(qsizetype(ids.size()));
        for (size_t index = 0; index < ids.size(); ++index)
            places.insert(ids[index], qsizetype(index));
    }
    std::map<qsizetype, Row> kept;
    for (const auto &[index, row] : m_rows) {
        const auto place = places.constFind(m_ids[size_t(index)]);
        if (place == places.constEnd() || !kept.emplace(*place, row).second)
            discard(row);
    }
    m_rows = std::move(kept);
}

/// Whether creating all rows would take too long: there are many, or their texts are long together.
bool RowList::mustVirtualize() const
{
    if (count() > virtualizationThreshold)
        return true;
    qsizetype length = 0;
    for (qsizetype index = 0; index < count() && m_delegate.textLength; ++index)
        length += m_delegate.textLength(index);
    return length > virtualizationTextLength;
}

void RowList::expectHeights()
{
    const auto expectedHeight = m_delegate.expectedHeights();
    std::vector<int> heights(m_ids.size());
    for (qsizetype index = 0; index < count(); ++index)
        heights[size_t(index)] = expectedHeight(index);
    m_geometry.setHeights(std::move(heights));
    updateGeometry();
}

/// Updates the heights of the rows that exist; returns whether one has changed. If rows above the part in
/// view have, scrolls by the difference, so that the part in view stays where it is.
bool RowList::measure()
{
    const int inView = m_scrollArea ? mapFrom(m_scrollArea->viewport(), QPoint()).y() : 0;
    std::map<qsizetype, int> changed;
    int grownAbove = 0;
    for (const auto &[index, row] : m_rows) {
        const int height = heightOf(row.widget, width());
        const int difference = height - m_geometry.height(index);
        if (difference != 0)
            changed[index] = height;
        if (m_geometry.top(index + 1) <= inView)
            grownAbove += difference;
    }
    if (changed.empty())
        return false;
    m_geometry.changeHeights(changed);
    updateGeometry();
    if (grownAbove != 0) {
        QScrollBar *bar = m_scrollArea->verticalScrollBar();
        bar->setValue(bar->value() + grownAbove);
    }
    return true;
}

/// The rows that must exist in any case: all, or if the list is virtualized, those in view.
RowList::Range RowList::wanted() const
{
    if (!m_isVirtualized)
        return {0, count()};
    if (!isVisible() || !m_scrollArea)
        return {0, 0};
    const QWidget *viewport = m_scrollArea->viewport();
    const int from = mapFrom(viewport, QPoint()).y();
    return m_geometry.rowsBetween(from, from + viewport->height());
}

void RowList::watchScrollArea()
{
    QScrollArea *area = nullptr;
    for (QWidget *ancestor = parentWidget(); ancestor && !area; ancestor = ancestor->parentWidget())
        area = qobject_cast<QScrollArea *>(ancestor);
    if (area == m_scrollArea)
        return;
    m_scrollArea = area;
    if (!area)
        return;
    area->viewport()->installEventFilter(this);
    connect(area->verticalScrollBar(), &QScrollBar::valueChanged, this, &RowList::refresh);
    // The page is laid out only after the bar's range has changed.
    connect(area->verticalScrollBar(), &QScrollBar::rangeChanged, this, &RowList::refresh,
            Qt::QueuedConnection);
}

/// Creates and deletes rows according to what is in view, and updates their heights and places.
void RowList::refresh()
{
    if (std::exchange(m_updating, true))
        return;
    // A row may have another height than expected, so that others come into view or leave it. A few rounds
    // are enough.
    constexpr int rounds = 4;
    for (int round = 0; round < rounds; ++round) {
        createMissingRows();
        if (!measure())
            break;
    }
    place();
    m_updating = false;
}

void RowList::createMissingRows()
{
    const Range range = wanted();
    dropOutside(range);
    for (qsizetype index = range.first; index < range.end; ++index) {
        if (!m_rows.contains(index))
            makeRow(index);
    }
}

void RowList::makeRow(qsizetype index)
{
    QWidget *widget = m_delegate.make(index, this);
    const auto row = m_rows.emplace(index, Row{widget, nullptr}).first;
    widget->setGeometry(0, m_geometry.top(index), width(), m_geometry.height(index));
    const auto next = std::next(row);
    if (next != m_rows.end())
        widget->stackUnder(next->second.widget); // the order in which screen readers find the rows
    chainFocus(row);
    m_delegate.show(widget, index);
    widget->show();
}

void RowList::dropOutside(Range range)
{
    if (!m_isVirtualized)
        return;
    std::erase_if(m_rows, [&](const auto &entry) {
        const auto &[index, row] = entry;
        if (range.contains(index) || mustKeep(row.widget))
            return false;
        discard(row);
        return true;
    });
}

bool RowList::mustKeep(const QWidget *row) const
{
    // The window's focus widget, which it also has while another window has the keyboard.
    return holds(row, window()->focusWidget()) || (m_delegate.mustKeep && m_delegate.mustKeep(row));
}

void RowList::discard(const Row &row)
{
    row.widget->hide();
    row.widget->deleteLater(); // it may be handling an event
    if (row.divider) {
        row.divider->hide();
        row.divider->deleteLater();
    }
}

void RowList::place()
{
    for (auto &[index, row] : m_rows) {
        const int top = m_geometry.top(index);
        const int height = m_geometry.height(index);
        row.widget->setGeometry(0, top, width(), height);
        const bool last = index + 1 == count();
        if (!last && !row.divider)
            row.divider = new SettingsRowDivider(this);
        if (!row.divider)
            continue;
        row.divider->setVisible(!last);
        row.divider->setGeometry(0, top + height, width(), RowGeometry::dividerHeight);
    }
}

/// Puts a new row's control into the tab order, after the control of the existing row before it.
void RowList::chainFocus(std::map<qsizetype, Row>::iterator row)
{
    QWidget *before = row == m_rows.begin() ? m_start : controlOf(std::prev(row)->second.widget);
    setTabOrder(before, controlOf(row->second.widget));
}

bool RowList::event(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        expectHeights();
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::FontChange)
        refresh(); // rows have other heights now
    return QWidget::event(event);
}

bool RowList::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && m_scrollArea && watched == m_scrollArea->viewport())
        refresh();
    return QWidget::eventFilter(watched, event);
}

void RowList::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    refresh();
}

void RowList::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    watchScrollArea();
    refresh();
}

/// Moves the focus to the next or previous row, which is created if it does not exist yet.
bool RowList::focusNextPrevChild(bool next)
{
    const QWidget *focus = focusWidget();
    const auto current = std::find_if(m_rows.begin(), m_rows.end(),
                                      [&](const auto &entry) { return holds(entry.second.widget, focus); });
    const qsizetype target = current == m_rows.end() ? -1 : current->first + (next ? 1 : -1);
    if (target < 0 || target >= count())
        return QWidget::focusNextPrevChild(next);
    if (!m_rows.contains(target)) {
        makeRow(target);
        place();
    }
    QWidget *row = m_rows.at(target).widget;
    controlOf(row)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    if (m_scrollArea)
        m_scrollArea->ensureWidgetVisible(row, 0, 0);
    return true;
}
