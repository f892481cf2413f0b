#pragma once

#include "Platform/Desktop/Appearance/Symbol.h"

#include <QImage>

/// What Symbol.cpp draws: the shape of a symbol as an image whose alpha says where the symbol is, in the
/// system's own drawing or ours. `scale` is the number of device pixels to a point; the image carries it.
QImage symbolMask(const Symbol &symbol, qreal scale);

/// Our own drawing from Resources/Symbols; null for a name we have no drawing of.
QImage drawnSymbolMask(const QString &name, qreal pointSize, qreal scale);
