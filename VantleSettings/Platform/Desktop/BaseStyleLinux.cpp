#include "Platform/Desktop/BaseStyle.h"

#include <QStyleFactory>

QStyle *makeBaseStyle()
{
    return QStyleFactory::create(QStringLiteral("fusion"));
}

bool systemDrawsControls()
{
    return false;
}
