#pragma once

#include <QBrush>
#include <QPainterPath>
#include <QRectF>

class QPainter;

/// A rounded rectangle whose curvature grows steadily from the sides into the corners.
QPainterPath continuousRectangle(const QRectF &rect, qreal radius);

/// A rectangle whose short sides are half circles.
QPainterPath capsule(const QRectF &rect);

/// The fill of tinted tiles over the height of `rect`: from the tint lightened by 18 % to the tint.
QBrush tintGradient(const QRectF &rect, const QColor &tint);

/// Between two colours, opacity included: `share` 0 is `from`, 1 is `to`.
QColor mixed(const QColor &from, const QColor &to, qreal share);

/// Fills with antialiased edges, leaving the painter as it was.
void fillShape(QPainter &painter, const QPainterPath &path, const QBrush &brush);

/// How wide one device pixel is, in points.
qreal devicePixel(const QPainter &painter);

/// A horizontal line of exactly one device pixel at every scale factor, at the top of `rect`.
void drawHairline(QPainter &painter, const QRectF &rect, const QColor &color);

/// The same, upright, at the leading side of `rect` as it stands (its left).
void drawVerticalHairline(QPainter &painter, const QRectF &rect, const QColor &color);

/// The fill and the inner stroke of a card.
void drawCard(QPainter &painter, const QRectF &rect);
