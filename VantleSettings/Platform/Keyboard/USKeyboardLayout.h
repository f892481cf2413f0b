#pragma once

#include "Platform/Keyboard/KeyboardLayout.h"

/// The US layout, fixed: for a system whose layout can't be read, and for tests.
class USKeyboardLayout : public KeyboardLayout
{
    Q_OBJECT

public:
    std::optional<QString> printedText(std::uint16_t virtualKeyCode) override;

    static std::optional<QString> printed(std::uint16_t virtualKeyCode);
};
