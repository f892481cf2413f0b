#include "Components/SymbolLabel.h"

#include "Components/Tokens.h"
#include "Platform/Desktop/Symbol.h"
#include "Platform/Window/AccessibleRole.h"

#include <QPainter>

#include <utility>

SymbolLabel::SymbolLabel(QString symbol, qreal pointSize, QWidget *parent)
    : QWidget(parent), m_symbol(std::move(symbol)), m_pointSize(pointSize)
{
    setFixedSize(symbolExtent(pointSize), symbolExtent(pointSize));
    markAsDecoration(this);
}

void SymbolLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawSymbol(painter, m_symbol, rect(), m_pointSize, textColor(TextColor::secondary));
}
