#pragma once

#include <QPainterPath>
#include <QStringView>

#include <array>
#include <span>

/// The drawings in Resources/Symbols, which the build compiles into paths: nothing has to be parsed at a
/// start.

struct SymbolPoint {
    QPainterPath::ElementType type;
    qreal x;
    qreal y;
};

/// A path on a grid of 32 by 32, which is filled, or stroked if it has a stroke width.
struct SymbolShape {
    Qt::GlobalColor color; ///< black, or white where the symbol has a hole
    qreal strokeWidth;
    Qt::PenCapStyle cap;
    Qt::PenJoinStyle join;
    std::array<qreal, 6>
        transform; ///< of the path and its stroke: m11, m12, m21, m22, dx and dy of QTransform
    std::span<const SymbolPoint> points;
};

/// A drawing with its shapes, of which the first is the lowest.
struct DrawnSymbol {
    QStringView name;
    std::span<const SymbolShape> shapes;
};

/// All drawings, in the order of their names.
std::span<const DrawnSymbol> drawnSymbols();
