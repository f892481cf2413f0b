#include "Platform/Palette.h"

#include <utility>

QColor accentColor()
{
    return color(SystemColor::blue);
}

bool reducedMotion()
{
    return false;
}

bool increasedContrast()
{
    return false;
}

void watchAppearance(std::function<void()> changed)
{
    std::ignore = std::move(changed);
}
