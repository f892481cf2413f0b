#include "Platform/SystemFont.h"

#include <QFontDatabase>
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
    const QString ours = QStringLiteral("Inter");
    if (font.family() == unnamed && QFontDatabase::hasFamily(ours))
        font.setFamily(ours);
    return font;
}

qreal systemTextScale()
{
    return std::max(1.0, QGuiApplication::font().pointSizeF() / usualPointSize);
}
