#pragma once

#include "Foundation/Observable.h"

#include <QString>

#include <cstdint>
#include <optional>

/// What the keys of this keyboard print. Emits `objectWillChange` when another layout becomes current,
/// so that views which show keys can update.
class KeyboardLayout : public Observable
{
    Q_OBJECT

public:
    ~KeyboardLayout() override;

    /// The text that this key (a macOS virtual key code) prints without modifiers under the current layout,
    /// or, where that one isn't Latin, under the user's Latin one; nothing for a dead key or a key that
    /// prints nothing.
    virtual std::optional<QString> printedText(std::uint16_t virtualKeyCode) = 0;

    static KeyboardLayout &system();

protected:
    KeyboardLayout() = default;
};
