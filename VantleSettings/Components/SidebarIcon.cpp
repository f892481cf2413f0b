#include "Components/SidebarIcon.h"

#include "Components/Drawing/Painting.h"
#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Desktop/Appearance/Symbol.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"

#include <QPainter>

#include <utility>

SidebarIcon::SidebarIcon(QString symbol, SystemColor tint, TileSize size, QWidget *parent)
    : QWidget(parent), m_symbol(std::move(symbol)), m_tint(tint), m_size(size)
{
    setFixedSize(m_size.side, m_size.side);
    markAsDecoration(this);
}

void SidebarIcon::setSymbol(const QString &symbol, SystemColor tint)
{
    m_symbol = symbol;
    m_tint = tint;
    update();
}

void SidebarIcon::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawSidebarIcon(painter, rect(), m_symbol, m_tint, m_size);
}

void drawSidebarIcon(QPainter &painter, const QRectF &tile, const QString &symbol, SystemColor tint,
                     TileSize size)
{
    fillShape(painter, continuousRectangle(tile, size.radius), tintGradient(tile, systemColor(tint)));
    drawSymbol(painter, {symbol, size.symbol, QFont::DemiBold}, tile, Qt::white);
}
