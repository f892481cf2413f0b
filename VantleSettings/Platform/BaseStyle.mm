#include "Platform/BaseStyle.h"

#include <QStyleFactory>

QStyle *makeBaseStyle() { return QStyleFactory::create(QStringLiteral("macos")); }

bool systemDrawsControls() { return true; }
