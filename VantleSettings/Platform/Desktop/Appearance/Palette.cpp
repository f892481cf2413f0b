#include "Platform/Desktop/Appearance/Palette.h"

QColor systemColor(SystemColor name)
{
    switch (name) {
    case SystemColor::gray:
        return {0x98, 0x98, 0x9D};
    case SystemColor::red:
        return {0xFF, 0x45, 0x3A};
    case SystemColor::orange:
        return {0xFF, 0x9F, 0x0A};
    case SystemColor::yellow:
        return {0xFF, 0xD6, 0x0A};
    case SystemColor::green:
        return {0x30, 0xD1, 0x58};
    case SystemColor::teal:
        return {0x40, 0xC8, 0xE0};
    case SystemColor::blue:
        return {0x0A, 0x84, 0xFF};
    case SystemColor::indigo:
        return {0x5E, 0x5C, 0xE6};
    case SystemColor::purple:
        return {0xBF, 0x5A, 0xF2};
    case SystemColor::pink:
        return {0xFF, 0x37, 0x5F};
    }
    Q_UNREACHABLE();
}
