#pragma once

#include "Platform/Desktop/Appearance/Symbol.h"

#include <QWidget>

/// A symbol in the secondary colour beside a text. Decoration: not in the accessibility tree.
class SymbolLabel : public QWidget
{
    Q_OBJECT

public:
    explicit SymbolLabel(Symbol symbol, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Symbol m_symbol;
};
