#pragma once

#include <QBrush>
#include <QPainterPath>
#include <QRectF>

class QPainter;

/// A rounded rectangle whose curvature grows steadily from the sides into the corners.
QPainterPath continuousRectangle(const QRectF &rect, qreal radius);

/// A rectangle whose short sides are half circles.
QPainterPath capsule(const QRectF &rect);

/// The vertical gradient of tinted tiles: the tint lightened by 18 % at the top of `rect`, the tint at its
/// bottom.
QBrush tintGradient(const QRectF &rect, const QColor &tint);

/// Interpolates between two colours, opacity included: `fraction` 0 is `from`, 1 is `to`.
QColor mixed(const QColor &from, const QColor &to, qreal fraction);

/// Fills with antialiased edges, leaving the painter as it was.
void fillShape(QPainter &painter, const QPainterPath &path, const QBrush &brush);

/// The width of one device pixel, in points.
qreal devicePixel(const QPainter &painter);

/// The rectangle with its edges between device pixels, where the toolkit puts those of a widget's clip.
QRectF alignedToPixels(const QPainter &painter, const QRectF &rect);

/// A horizontal line of exactly one device pixel at every scale factor, at the top of `rect`.
void drawHairline(QPainter &painter, const QRectF &rect, const QColor &color);

/// The same as a vertical line at the left of `rect`, in either layout direction.
void drawVerticalHairline(QPainter &painter, const QRectF &rect, const QColor &color);
