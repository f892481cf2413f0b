#include "Platform/Desktop/Appearance/detail/SymbolDrawing.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace
{

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
    const QString file = QStringLiteral(":/symbols/%1.svg").arg(name);
    if (!QFile::exists(file))
        return {};
    QSvgRenderer drawing(file);
    const int extent = qRound(symbolExtent(pointSize) * scale);
    QImage picture(extent, extent, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(0, 0, extent, extent));
    painter.end();
    QImage mask = maskFromDrawing(picture);
    mask.setDevicePixelRatio(scale);
    return mask;
}
