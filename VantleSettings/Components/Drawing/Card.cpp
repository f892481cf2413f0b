#include "Components/Drawing/Card.h"

#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"

#include <QPainter>
#include <QPen>

#include <algorithm>

void drawCard(QPainter &painter, const QRectF &rect)
{
    // An edge between two pixels would be spread over both, and the widget's clip would cut off half of it.
    const QRectF card = alignedToPixels(painter, rect);
    fillShape(painter, continuousRectangle(card, Tokens::cardRadius), Tokens::cardBackground);
    const qreal width = std::max(0.5, devicePixel(painter));
    const qreal inset = width / 2;
    QColor stroke = Tokens::separator();
    stroke.setAlphaF(stroke.alphaF() / 2);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(
        continuousRectangle(card.adjusted(inset, inset, -inset, -inset), Tokens::cardRadius - inset),
        QPen(stroke, width));
    painter.restore();
}
