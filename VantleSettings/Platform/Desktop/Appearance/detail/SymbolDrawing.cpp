#include "Platform/Desktop/Appearance/detail/SymbolDrawing.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace
{

/// A drawing is black ink on white paper, so that holes are simply painted white and the file looks the same
/// in any viewer. Darkness becomes opacity.
QImage opacityOfInk(const QImage &paper)
{
    QImage mask(paper.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < paper.height(); ++y) {
        const auto *ink = reinterpret_cast<const QRgb *>(paper.constScanLine(y));
        auto *opacity = reinterpret_cast<QRgb *>(mask.scanLine(y));
        for (int x = 0; x < paper.width(); ++x)
            opacity[x] = qRgba(0, 0, 0, 255 - qBlue(ink[x]));
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
    QImage paper(extent, extent, QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(0, 0, extent, extent));
    painter.end();
    QImage mask = opacityOfInk(paper);
    mask.setDevicePixelRatio(scale);
    return mask;
}
