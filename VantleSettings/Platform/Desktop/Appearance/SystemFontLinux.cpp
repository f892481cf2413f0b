#include "Platform/Desktop/Appearance/SystemFont.h"

#include <QGuiApplication>

#include <algorithm>

namespace
{

/// The size most desktops start with; a user who wants larger texts sets a larger one.
constexpr qreal defaultPointSize = 11;

} // namespace

QFont systemFont()
{
    QFont font = QGuiApplication::font();
    const QString unnamed = QStringLiteral("Sans Serif"); // Qt's name where the desktop sets no font
    if (font.family() == unnamed)
        font.setFamily(QStringLiteral("Inter")); // fontconfig replaces it by its default where it is missing
    return font;
}

qreal systemTextScale()
{
    return std::max(1.0, QGuiApplication::font().pointSizeF() / defaultPointSize);
}
