#pragma once

#include "Components/Drawing/Tokens.h"
#include "Foundation/SystemColor.h"

#include <QWidget>

/// A tile's side and corner radius, and the size of its symbol, in points.
struct TileSize {
    int side = Tokens::iconTile;
    int radius = Tokens::iconTileRadius;
    qreal symbol = Tokens::iconTilePointSize;
};

/// A small tinted tile with a white symbol. Decoration: not in the accessibility tree.
class SidebarIcon : public QWidget
{
    Q_OBJECT

public:
    explicit SidebarIcon(QString symbol, SystemColor tint, TileSize size = {}, QWidget *parent = nullptr);

    const QString &symbol() const { return m_symbol; }
    SystemColor tint() const { return m_tint; }
    void setSymbol(const QString &symbol, SystemColor tint);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbol;
    SystemColor m_tint;
    TileSize m_size;
};

/// Draws the tile, for views that paint their own rows.
void drawSidebarIcon(QPainter &painter, const QRectF &tile, const QString &symbol, SystemColor tint,
                     TileSize size = {});
