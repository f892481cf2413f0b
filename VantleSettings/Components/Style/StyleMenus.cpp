#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Components/Style/StyleDrawing.h"
#include "Platform/Desktop/Appearance/Palette.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>
#include <array>

namespace
{

constexpr int itemPadding = 10;
constexpr int checkColumn = StyleDrawing::entryInset - StyleDrawing::menuMargin - itemPadding;
constexpr int shortcutGap = 28;
constexpr int separatorHeight = 11;
constexpr qreal itemRadius = 5;

bool isChecked(const QStyleOptionMenuItem &option)
{
    return option.checkType != QStyleOptionMenuItem::NotCheckable && option.checked;
}

bool hasCheckColumn(const QStyleOptionMenuItem &option)
{
    return option.menuHasCheckableItems || option.checkType != QStyleOptionMenuItem::NotCheckable;
}

void drawCheckMark(QPainter &painter, const QRectF &box, const QColor &color)
{
    const QPointF middle = box.center();
    const std::array mark{middle + QPointF(-3.5, 0.25), middle + QPointF(-1, 3), middle + QPointF(3.5, -3.5)};
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(mark.data(), int(mark.size()));
    painter.restore();
}

void drawTexts(QPainter &painter, const QStyleOptionMenuItem &option, const QRect &row, const QColor &color)
{
    const QStringList texts = option.text.split(u'\t');
    const Qt::Alignment leading = QStyle::visualAlignment(option.direction, Qt::AlignLeft);
    const Qt::Alignment trailing = QStyle::visualAlignment(option.direction, Qt::AlignRight);
    painter.setFont(option.font);
    painter.setPen(color);
    painter.drawText(row, int(leading | Qt::AlignVCenter) | Qt::TextHideMnemonic | Qt::TextSingleLine,
                     texts.first());
    if (texts.size() < 2)
        return;
    if (option.state & QStyle::State_Enabled)
        painter.setPen(
            textColor(option.state & QStyle::State_Selected ? TextColor::white : TextColor::secondary));
    painter.drawText(row, int(trailing | Qt::AlignVCenter) | Qt::TextSingleLine, texts.at(1));
}

} // namespace

void StyleDrawing::drawPanel(QPainter &painter, const QRect &rect, qreal radius)
{
    const qreal width = devicePixel(painter);
    const QRectF edge = QRectF(rect).adjusted(width / 2, width / 2, -width / 2, -width / 2);
    fillShape(painter, continuousRectangle(rect, radius), Tokens::menuBackground);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(continuousRectangle(edge, radius), QPen(Tokens::separator(), width));
    painter.restore();
}

QSize StyleDrawing::menuItemSize(const QStyleOptionMenuItem &option)
{
    if (option.menuItemType == QStyleOptionMenuItem::Separator)
        return {0, separatorHeight};
    const QFontMetrics metrics(option.font);
    const QStringList texts = option.text.split(u'\t');
    const int check = hasCheckColumn(option) ? checkColumn : 0;
    int width = check + metrics.size(Qt::TextShowMnemonic | Qt::TextSingleLine, texts.first()).width();
    if (texts.size() > 1)
        width += shortcutGap + metrics.horizontalAdvance(texts.at(1));
    return {width + 2 * itemPadding, std::max(Tokens::smallButtonHeight, metrics.height() + 6)};
}

void StyleDrawing::drawMenuItem(QPainter &painter, const QStyleOptionMenuItem &option, int inset)
{
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        const QRectF line =
            QRectF(option.rect).adjusted(itemPadding, option.rect.height() / 2.0, -itemPadding, 0);
        drawHairline(painter, line, Tokens::separator());
        return;
    }
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool selected = enabled && option.state & QStyle::State_Selected;
    painter.save();
    if (selected)
        fillShape(painter, continuousRectangle(option.rect.adjusted(inset, 0, -inset, 0), itemRadius),
                  accentColor());
    const QColor color = textColor(selected  ? TextColor::white
                                   : enabled ? TextColor::primary
                                             : TextColor::tertiary);
    const int padding = itemPadding + inset;
    QRect row = option.rect.adjusted(padding, 0, -padding, 0);
    if (hasCheckColumn(option)) {
        const QRect mark(row.left() - 3, row.top(), checkColumn, row.height());
        if (isChecked(option))
            drawCheckMark(painter, QStyle::visualRect(option.direction, option.rect, mark), color);
        row.setLeft(row.left() + checkColumn);
        row = QStyle::visualRect(option.direction, option.rect, row);
    }
    drawTexts(painter, option, row, color);
    painter.restore();
}

void StyleDrawing::drawMenuBarItem(QPainter &painter, const QStyleOptionMenuItem &option)
{
    painter.save();
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool open = option.state & QStyle::State_Sunken;
    const bool hovered = option.state & QStyle::State_Selected;
    if (enabled && (open || hovered)) {
        const QRectF item = QRectF(option.rect).adjusted(0, 2, 0, -2);
        fillShape(painter, continuousRectangle(item, itemRadius),
                  open ? Tokens::sidebarSelection : Tokens::sidebarHover);
    }
    painter.setPen(textColor(enabled ? TextColor::primary : TextColor::tertiary));
    painter.drawText(option.rect, Qt::AlignCenter | Qt::TextHideMnemonic | Qt::TextSingleLine, option.text);
    painter.restore();
}
