#pragma once

#include <QString>

#include <cstdint>

/// A key and its modifiers, in the numeric form the agent registers with the system.
struct KeyCombo {
    std::uint32_t keyCode = 0;   ///< macOS virtual key code
    std::uint32_t modifiers = 0; ///< Carbon mask: Command 0x0100, Shift 0x0200, Option 0x0800, Control 0x1000

    bool operator==(const KeyCombo &) const = default;

    /// The combination as glyphs under the current keyboard layout, e.g. ⇧⌘J. A key code of 65536 or more
    /// stops the program.
    QString display() const;
};
