#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Components/Style/ScrollBarFade.h"
#include "Components/Style/StyleDrawing.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace
{
constexpr int edge = 2; ///< between the handle and the edge of the page
}

void StyleDrawing::drawScrollBar(QPainter &painter, const QStyleOptionSlider &option, const QRect &handle,
                                 const QWidget *bar)
{
    const qreal opacity = ScrollBarFade::opacity(bar);
    if (opacity <= 0 || option.minimum >= option.maximum)
        return;
    const bool vertical = option.orientation == Qt::Vertical;
    QRect shape = handle;
    if (vertical) {
        const bool mirrored = option.direction == Qt::RightToLeft;
        shape.setWidth(Tokens::scrollBarWidth);
        shape.moveLeft(mirrored ? handle.left() + edge : handle.right() + 1 - edge - Tokens::scrollBarWidth);
        shape.adjust(0, edge, 0, -edge);
    } else {
        shape.setTop(handle.bottom() + 1 - edge - Tokens::scrollBarWidth);
        shape.setHeight(Tokens::scrollBarWidth);
        shape.adjust(edge, 0, -edge, 0);
    }
    QColor color = Tokens::scrollBarHandle;
    if (option.state & (QStyle::State_Sunken | QStyle::State_MouseOver))
        color.setAlphaF(std::min(1.0F, color.alphaF() * 1.5F));
    painter.save();
    painter.setOpacity(opacity);
    fillShape(painter, capsule(shape), color);
    painter.restore();
}
