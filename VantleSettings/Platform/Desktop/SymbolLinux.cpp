#include "Platform/Desktop/detail/SymbolDrawing.h"

QImage symbolMask(const Symbol &symbol, qreal scale)
{
    return drawnSymbolMask(symbol.name, symbol.pointSize, scale);
}
