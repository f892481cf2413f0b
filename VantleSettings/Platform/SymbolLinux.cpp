#include "Platform/SymbolDrawing.h"

QImage symbolMask(const QString &name, qreal pointSize, qreal scale)
{
    return drawnSymbolMask(name, pointSize, scale);
}
