#include "Components/SidebarIcon.h"

#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Desktop/Appearance/Symbol.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"

#include <QPainter>

#include <utility>

SidebarIcon::SidebarIcon(QString symbol, SystemColor tint, QWidget *parent)
    : QWidget(parent), m_symbol(std::move(symbol)), m_tint(tint)
{
    setFixedSize(Tokens::iconTile, Tokens::iconTile);
    markAsDecoration(this);
}

void SidebarIcon::setSymbol(const QString &symbol, SystemColor tint)
{
    m_symbol = symbol;
    m_tint = tint;
    update();
}

QSize SidebarIcon::sizeHint() const
{
    return {Tokens::iconTile, Tokens::iconTile};
}

void SidebarIcon::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawSidebarIcon(painter, rect(), m_symbol, m_tint);
}

void drawSidebarIcon(QPainter &painter, const QRectF &tile, const QString &symbol, SystemColor tint)
{
    fill(painter, continuousRectangle(tile, Tokens::iconTileRadius), tintGradient(tile, color(tint)));
    drawSymbol(painter, {symbol, Tokens::iconTilePointSize, QFont::DemiBold}, tile, Qt::white);
}
