#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Desktop/Appearance/detail/AppearancePortal.h"

#include <QGuiApplication>
#include <QScreen>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

Appearance &current()
{
    static Appearance appearance;
    return appearance;
}

} // namespace

QColor accentColor()
{
    return current().accent.value_or(systemColor(SystemColor::blue));
}

bool reducedMotion()
{
    return current().reducedMotion;
}

bool increasedContrast()
{
    return current().increasedContrast;
}

qreal textSizeFactor()
{
    const qreal wanted = current().textScale;
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (QGuiApplication::platformName() != "xcb"_L1 || screen == nullptr)
        return wanted;
    return textScaleBesides(wanted, screen->devicePixelRatio());
}

void watchAppearance(std::function<void()> changed)
{
    auto *portal = new AppearancePortal([changed = std::move(changed)](const Appearance &now) {
        current() = now;
        changed();
    });
    portal->setParent(QCoreApplication::instance());
}
