#include "SettingsWindow/Sidebar.h"

#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Components/SidebarIcon.h"
#include "Platform/Desktop/Appearance/Palette.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace
{

constexpr int entryGap = 2;

SettingsSection sectionOf(const QModelIndex &index)
{
    return allSettingsSections[size_t(index.row())];
}

/// Draws an entry: tile and title on a rounded rectangle that shows hover, selection and focus.
class EntryDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        return {0, Tokens::sidebarEntryHeight + entryGap};
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QRectF entry = QRectF(option.rect)
                                 .adjusted(Tokens::sidebarEntryInset, entryGap / 2.0,
                                           -Tokens::sidebarEntryInset, -entryGap / 2.0);
        const QPainterPath shape = continuousRectangle(entry, Tokens::sidebarEntryRadius);
        if (option.state & QStyle::State_Selected)
            fillShape(*painter, shape, Tokens::sidebarSelection);
        else if (option.state & QStyle::State_MouseOver)
            fillShape(*painter, shape, Tokens::sidebarHover);
        if (option.state & QStyle::State_HasFocus && option.state & QStyle::State_KeyboardFocusChange)
            drawFocusRing(*painter, entry);

        const bool mirrored = option.direction == Qt::RightToLeft;
        QRectF tile(0, 0, Tokens::iconTile, Tokens::iconTile);
        tile.moveCenter(entry.center());
        tile.moveLeft(mirrored ? entry.right() - Tokens::sidebarEntryGap - tile.width()
                               : entry.left() + Tokens::sidebarEntryGap);
        drawSidebarIcon(*painter, tile, symbol(sectionOf(index)), tint(sectionOf(index)));
        const qreal inset = 2 * Tokens::sidebarEntryGap + tile.width();
        const QRectF text = mirrored ? entry.adjusted(Tokens::sidebarEntryGap, 0, -inset, 0)
                                     : entry.adjusted(inset, 0, -Tokens::sidebarEntryGap, 0);
        const QString title = index.data().toString();
        painter->setFont(textFont(TextStyle::size13Medium));
        painter->setPen(textColor(TextColor::primary));
        const Qt::Alignment place = (mirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
        painter->drawText(text, int(place),
                          painter->fontMetrics().elidedText(title, Qt::ElideRight, int(text.width())));
    }

private:
    static void drawFocusRing(QPainter &painter, const QRectF &entry)
    {
        QColor ring = accentColor();
        ring.setAlphaF(Tokens::focusRingOpacity);
        const qreal half = Tokens::focusRingWidth / 2.0;
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(ring, Tokens::focusRingWidth));
        painter.drawPath(
            continuousRectangle(entry.adjusted(half, half, -half, -half), Tokens::sidebarEntryRadius - half));
        painter.restore();
    }
};

} // namespace

Sidebar::Sidebar(int topMargin, QWidget *parent) : QListWidget(parent)
{
    setAccessibleName(u"Sections"_s);
    setFrameShape(QFrame::NoFrame);
    fitWidth();
    setViewportMargins(0, topMargin + Tokens::sidebarEntryInset, 0, 0);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setMouseTracking(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setItemDelegate(new EntryDelegate(this));
    QPalette colors = palette();
    colors.setColor(QPalette::Base, Tokens::sidebarBackground);
    colors.setColor(QPalette::Window, Tokens::sidebarBackground);
    setPalette(colors);
    setAutoFillBackground(true);
    for (const SettingsSection section : allSettingsSections)
        addItem(rawValue(section));
    connect(this, &QListWidget::itemSelectionChanged, this, [this] {
        if (!selectedIndexes().isEmpty())
            Q_EMIT selectionMoved(selection());
    });
    // A screen reader selects an entry without making it the current one.
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection &selected) {
                if (!selected.isEmpty())
                    setCurrentIndex(selected.indexes().constFirst());
            });
}

SettingsSection Sidebar::selection() const
{
    return sectionOf(selectedIndexes().value(0));
}

void Sidebar::select(SettingsSection section)
{
    const QModelIndex entry = model()->index(int(section), 0);
    selectionModel()->setCurrentIndex(hasFocus() ? entry : QModelIndex(), QItemSelectionModel::NoUpdate);
    selectionModel()->select(entry, QItemSelectionModel::ClearAndSelect);
}

void Sidebar::changeEvent(QEvent *event)
{
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitWidth();
}

void Sidebar::fitWidth()
{
    setFixedWidth(scaledWithText(Tokens::sidebarWidth) - 1); // the separator takes the last point
}

// A click with Control would deselect the entry, but one page is always shown.
QItemSelectionModel::SelectionFlags Sidebar::selectionCommand(const QModelIndex &index,
                                                              const QEvent *event) const
{
    const auto command = QListWidget::selectionCommand(index, event);
    return command.testFlag(QItemSelectionModel::Deselect) ? QItemSelectionModel::NoUpdate : command;
}

// QListWidget would copy the title of the entry.
void Sidebar::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy))
        event->ignore();
    else
        QListWidget::keyPressEvent(event);
}

// There is a current entry only while the list has the focus. Otherwise a screen reader would find two
// controls with the focus.
void Sidebar::focusInEvent(QFocusEvent *event)
{
    selectionModel()->setCurrentIndex(selectedIndexes().value(0), QItemSelectionModel::NoUpdate);
    QListWidget::focusInEvent(event);
    QMetaObject::invokeMethod(this, &Sidebar::announceCurrentEntry, Qt::QueuedConnection);
}

// Sends the entry's focus event again: the toolkit sends it before the list's, so screen readers would read
// out the list alone.
void Sidebar::announceCurrentEntry()
{
    if (!hasFocus() || !currentIndex().isValid())
        return;
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(currentRow());
    QAccessible::updateAccessibility(&event);
}

void Sidebar::focusOutEvent(QFocusEvent *event)
{
    selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
    QListWidget::focusOutEvent(event);
}

// The space around the entries counts as the window's background: dragging it moves the window.
void Sidebar::mousePressEvent(QMouseEvent *event)
{
    m_isPressedBesideEntries = !indexAt(event->position().toPoint()).isValid();
    if (m_isPressedBesideEntries)
        event->ignore();
    else
        QListWidget::mousePressEvent(event);
}

void Sidebar::mouseMoveEvent(QMouseEvent *event)
{
    if (m_isPressedBesideEntries && event->buttons())
        event->ignore();
    else
        QListWidget::mouseMoveEvent(event);
}

void Sidebar::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_isPressedBesideEntries)
        event->ignore();
    else
        QListWidget::mouseReleaseEvent(event);
}
