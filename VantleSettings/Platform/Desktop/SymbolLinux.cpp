#include "Platform/Desktop/detail/SymbolDrawing.h"

QImage symbolMask(const QString &name, qreal pointSize, qreal scale)
{
    return drawnSymbolMask(name, pointSize, scale);
}
