#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

class QPainter;

/// Symbols by their SF Symbol name: the system's own where it has them, else the drawings in
/// Resources/Symbols.

/// The square a symbol of a text size takes, in points; a symbol never paints outside it.
int symbolExtent(qreal pointSize);

/// Draws the symbol around the centre of `box` at a text size in points. A name nobody knows draws nothing.
void drawSymbol(QPainter &painter, const QString &name, const QRectF &box, qreal pointSize,
                const QColor &color);

/// The symbol as an icon for buttons and menus, sharp at every scale factor.
QIcon symbolIcon(const QString &name, qreal pointSize, const QColor &color);
