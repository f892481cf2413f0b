#include "Platform/Desktop/Appearance/detail/SymbolDrawing.h"

QImage symbolMask(const Symbol &symbol, qreal scale)
{
    return drawnSymbolMask(symbol.name, symbol.pointSize, scale);
}
