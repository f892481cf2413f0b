#include "Platform/Desktop/Appearance/Symbol.h"

#include "Platform/Desktop/Appearance/detail/SymbolDrawing.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>

namespace
{

QPixmap symbolPixmap(const Symbol &symbol, qreal scale, const QColor &color)
{
    const QString key = QStringLiteral("symbol %1 %2 %3 %4 %5")
                            .arg(symbol.name)
                            .arg(symbol.pointSize)
                            .arg(int(symbol.weight))
                            .arg(scale)
                            .arg(color.rgba(), 0, 16);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    QImage image = symbolMask(symbol, scale);
    if (image.isNull())
        return {};
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRect(QPoint(), image.size()), color);
    painter.end();
    pixmap = QPixmap::fromImage(image);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

/// Draws a symbol at its own text size whatever size the icon is asked for.
class SymbolIconEngine : public QIconEngine
{
public:
    SymbolIconEngine(Symbol symbol, const QColor &color) : m_symbol(std::move(symbol)), m_color(color) {}

    void paint(QPainter *painter, const QRect &box, QIcon::Mode mode, QIcon::State) override
    {
        painter->save();
        if (mode == QIcon::Disabled)
            painter->setOpacity(painter->opacity() * 0.4);
        drawSymbol(*painter, m_symbol, box, m_color);
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1);
    }

    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale) override
    {
        QPixmap pixmap(size);
        pixmap.setDevicePixelRatio(scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRectF(QPointF(), QSizeF(size) / scale).toRect(), mode, state);
        return pixmap;
    }

    QIconEngine *clone() const override { return new SymbolIconEngine(*this); }

private:
    Symbol m_symbol;
    QColor m_color;
};

} // namespace

void drawSymbol(QPainter &painter, const Symbol &symbol, const QRectF &box, const QColor &color)
{
    const qreal scale = painter.deviceTransform().m11();
    const QPixmap pixmap = symbolPixmap(symbol, scale, color);
    if (pixmap.isNull())
        return;
    const QSizeF size = pixmap.deviceIndependentSize();
    painter.drawPixmap(box.center() - QPointF(size.width() / 2, size.height() / 2), pixmap);
}

QIcon symbolIcon(const Symbol &symbol, const QColor &color)
{
    return QIcon(new SymbolIconEngine(symbol, color));
}
