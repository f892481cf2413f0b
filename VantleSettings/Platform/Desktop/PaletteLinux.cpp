#include "Platform/Desktop/Palette.h"
#include "Platform/Desktop/detail/AppearancePortal.h"

#include <QCoreApplication>

#include <utility>

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
    return current().accent.value_or(color(SystemColor::blue));
}

bool reducedMotion()
{
    return current().reducedMotion;
}

bool increasedContrast()
{
    return current().increasedContrast;
}

void watchAppearance(std::function<void()> changed)
{
    auto *portal = new AppearancePortal([changed = std::move(changed)](const Appearance &now) {
        current() = now;
        changed();
    });
    portal->setParent(QCoreApplication::instance());
}
