#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QString>

class QPainter;

/// Symbols by their SF Symbol name: the system's own where it has them, else the drawings in
/// Resources/Symbols.

/// The square a symbol of a text size takes, in points; a symbol never paints outside it.
int symbolExtent(qreal pointSize);

/// A symbol beside a text of this size and weight. Our own drawings have one weight for all.
struct Symbol {
    QString name;
    qreal pointSize = 0;
    QFont::Weight weight = QFont::Normal;
};

/// Draws the symbol around the centre of `box`. An unknown name draws nothing.
void drawSymbol(QPainter &painter, const Symbol &symbol, const QRectF &box, const QColor &color);

/// The symbol as an icon for buttons and menus, sharp at every scale factor.
QIcon symbolIcon(const Symbol &symbol, const QColor &color);
