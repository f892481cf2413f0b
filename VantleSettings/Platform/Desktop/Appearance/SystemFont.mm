#include "Platform/Desktop/Appearance/SystemFont.h"

#include <QFontDatabase>

QFont systemFont() { return QFontDatabase::systemFont(QFontDatabase::GeneralFont); }

qreal systemTextScale()
{
    return 1; // the system has no such setting for windows
}
