#include "Components/SymbolLabel.h"

#include "Components/Drawing/Tokens.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"

#include <QPainter>

#include <utility>

SymbolLabel::SymbolLabel(Symbol symbol, QWidget *parent) : QWidget(parent), m_symbol(std::move(symbol))
{
    setFixedSize(symbolExtent(m_symbol.pointSize), symbolExtent(m_symbol.pointSize));
    markAsDecoration(this);
}

void SymbolLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawSymbol(painter, m_symbol, rect(), textColor(TextColor::secondary));
}
