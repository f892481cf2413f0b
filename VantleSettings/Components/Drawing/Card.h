#pragma once

#include <QRectF>

class QPainter;

/// Draws a card, the box around the rows of a group: its fill and its inner stroke.
void drawCard(QPainter &painter, const QRectF &rect);
