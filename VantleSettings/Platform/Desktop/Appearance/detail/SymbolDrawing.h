#pragma once

#include "Platform/Desktop/Appearance/Symbol.h"

#include <QImage>

/// The shape of a symbol, in the system's drawing or ours, as an image whose alpha says where the symbol is;
/// Symbol.cpp colours it. `scale` is the number of device pixels to a point; the image carries it.
QImage symbolMask(const Symbol &symbol, qreal scale);

/// Our own drawing from Resources/Symbols; null for a name we have no drawing of.
QImage drawnSymbolMask(const QString &name, qreal pointSize, qreal scale);
