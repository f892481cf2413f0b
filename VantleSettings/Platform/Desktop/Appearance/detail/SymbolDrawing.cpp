#include "Platform/Desktop/Appearance/detail/SymbolDrawing.h"

#include "Platform/Desktop/Appearance/detail/SymbolShapes.h"

#include <QPainter>

#include <algorithm>

namespace
{

constexpr qreal gridSize = 32;

QPainterPath pathThrough(std::span<const SymbolPoint> points)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (size_t i = 0; i < points.size(); ++i) {
        const QPointF point(points[i].x, points[i].y);
        switch (points[i].type) {
        case QPainterPath::MoveToElement:
            path.moveTo(point);
            break;
        case QPainterPath::LineToElement:
            path.lineTo(point);
            break;
        case QPainterPath::CurveToElement: // and the two after it
            path.cubicTo(point, {points[i + 1].x, points[i + 1].y}, {points[i + 2].x, points[i + 2].y});
            break;
        case QPainterPath::CurveToDataElement:
            break;
        }
    }
    return path;
}

void draw(QPainter &painter, const SymbolShape &shape)
{
    const QPainterPath path = pathThrough(shape.points);
    const auto &[m11, m12, m21, m22, dx, dy] = shape.transform;
    painter.save();
    painter.setTransform({m11, m12, m21, m22, dx, dy}, true);
    if (shape.strokeWidth > 0)
        painter.strokePath(path, QPen(shape.color, shape.strokeWidth, Qt::SolidLine, shape.cap, shape.join));
    else
        painter.fillPath(path, shape.color);
    painter.restore();
}

/// Turns darkness into opacity. A drawing is black on white, so that holes are simply painted white and the
/// file looks the same in any viewer.
QImage maskFromDrawing(const QImage &picture)
{
    QImage mask(picture.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < picture.height(); ++y) {
        const auto *pixels = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        auto *opacity = reinterpret_cast<QRgb *>(mask.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            opacity[x] = qRgba(0, 0, 0, 255 - qBlue(pixels[x]));
    }
    return mask;
}

} // namespace

int symbolExtent(qreal pointSize)
{
    return 2 * qRound(0.75 * pointSize);
}

QImage drawnSymbolMask(const QString &name, qreal pointSize, qreal scale)
{
    const auto symbol = std::ranges::find(drawnSymbols(), QStringView(name), &DrawnSymbol::name);
    if (symbol == drawnSymbols().end())
        return {};
    const int extent = qRound(symbolExtent(pointSize) * scale);
    QImage picture(extent, extent, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(extent / gridSize, extent / gridSize);
    for (const SymbolShape &shape : symbol->shapes)
        draw(painter, shape);
    painter.end();
    QImage mask = maskFromDrawing(picture);
    mask.setDevicePixelRatio(scale);
    return mask;
}
