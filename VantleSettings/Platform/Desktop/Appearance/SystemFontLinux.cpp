#include "Platform/Desktop/Appearance/SystemFont.h"

#include <QGuiApplication>

#include <algorithm>

namespace
{

/// The size most desktops start with; a user who wants larger texts sets a larger one.
constexpr qreal usualPointSize = 11;

} // namespace

QFont systemFont()
{
    QFont font = QGuiApplication::font();
    const QString unnamed = QStringLiteral("Sans Serif"); // what Qt says where no desktop names a font
    if (font.family() == unnamed)
        font.setFamilies({QStringLiteral("Inter"), unnamed});
    return font;
}

qreal systemTextScale()
{
    return std::max(1.0, QGuiApplication::font().pointSizeF() / usualPointSize);
}
