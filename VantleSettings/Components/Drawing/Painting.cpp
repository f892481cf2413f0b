#include "Components/Drawing/Painting.h"

#include <QPainter>

#include <algorithm>
#include <numbers>

namespace
{

/// Adds one corner, from the side before it to the side after it. Each half is a cubic that starts at its
/// side with zero curvature. The halves meet on the diagonal, where position, direction and curvature are
/// those of the circle of this radius.
void addCorner(QPainterPath &path, QPointF corner, QPointF toBefore, QPointF toAfter, qreal radius,
               qreal limit)
{
    const qreal start = std::min(1.5 * radius, limit);
    const qreal control = std::min(0.95 * radius, start);
    const qreal diagonal = (1 - std::numbers::sqrt2 / 2) * radius;
    const QPointF middle = corner + (toBefore + toAfter) * diagonal;
    path.lineTo(corner + toBefore * start);
    path.cubicTo(corner + toBefore * control, corner + toBefore * 2 * diagonal, middle);
    path.cubicTo(corner + toAfter * 2 * diagonal, corner + toAfter * control, corner + toAfter * start);
}

/// A rectangle in device pixels. Its corners are rounded as the toolkit rounds those of a widget's clip.
QRect devicePixels(const QPainter &painter, const QRectF &rect)
{
    const QTransform toDevice = painter.deviceTransform();
    const QPoint topLeft = toDevice.map(rect.topLeft()).toPoint();
    const QPoint bottomRight = toDevice.map(rect.bottomRight()).toPoint();
    return {topLeft, bottomRight - QPoint(1, 1)};
}

QRectF inPoints(const QPainter &painter, const QRect &pixels)
{
    return painter.deviceTransform().inverted().mapRect(QRectF(pixels));
}

} // namespace

QPainterPath continuousRectangle(const QRectF &rect, qreal radius)
{
    const qreal limit = std::min(rect.width(), rect.height()) / 2;
    const qreal bounded = std::min(radius, limit);
    const QPointF left(-1, 0);
    const QPointF right(1, 0);
    const QPointF up(0, -1);
    const QPointF down(0, 1);
    QPainterPath path(QPointF(rect.center().x(), rect.top()));
    addCorner(path, rect.topRight(), left, down, bounded, limit);
    addCorner(path, rect.bottomRight(), up, left, bounded, limit);
    addCorner(path, rect.bottomLeft(), right, up, bounded, limit);
    addCorner(path, rect.topLeft(), down, right, bounded, limit);
    path.closeSubpath();
    return path;
}

QPainterPath capsule(const QRectF &rect)
{
    const qreal radius = std::min(rect.width(), rect.height()) / 2;
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

QBrush tintGradient(const QRectF &rect, const QColor &tint)
{
    const auto lightened = [](float channel) { return channel + 0.18F * (1 - channel); };
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    gradient.setColorAt(
        0, QColor::fromRgbF(lightened(tint.redF()), lightened(tint.greenF()), lightened(tint.blueF())));
    gradient.setColorAt(1, tint);
    return gradient;
}

QColor mixed(const QColor &from, const QColor &to, qreal fraction)
{
    const auto channel = [fraction](float a, float b) { return a + (b - a) * static_cast<float>(fraction); };
    return QColor::fromRgbF(channel(from.redF(), to.redF()), channel(from.greenF(), to.greenF()),
                            channel(from.blueF(), to.blueF()), channel(from.alphaF(), to.alphaF()));
}

void fillShape(QPainter &painter, const QPainterPath &path, const QBrush &brush)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, brush);
    painter.restore();
}

qreal devicePixel(const QPainter &painter)
{
    return 1 / painter.deviceTransform().m11();
}

QRectF alignedToPixels(const QPainter &painter, const QRectF &rect)
{
    return inPoints(painter, devicePixels(painter, rect));
}

void drawHairline(QPainter &painter, const QRectF &rect, const QColor &color)
{
    QRect line = devicePixels(painter, rect);
    line.setHeight(1);
    painter.fillRect(inPoints(painter, line), color);
}

void drawVerticalHairline(QPainter &painter, const QRectF &rect, const QColor &color)
{
    QRect line = devicePixels(painter, rect);
    line.setWidth(1);
    painter.fillRect(inPoints(painter, line), color);
}
