#pragma once

#include <QString>

#include <cstdint>

/// A key and its modifiers, in the numeric form the agent registers with the system.
struct KeyCombo {
    std::uint32_t keyCode = 0;   ///< macOS virtual key code
    std::uint32_t modifiers = 0; ///< Carbon mask of the bits below; other bits of a file are kept

    static constexpr std::uint32_t command = 0x0100;
    static constexpr std::uint32_t shift = 0x0200;
    static constexpr std::uint32_t option = 0x0800;
    static constexpr std::uint32_t control = 0x1000;

    bool operator==(const KeyCombo &) const = default;

    /// The combination as glyphs under the current keyboard layout, e.g. ⇧⌘J. A key code of 65536 or more
    /// stops the program.
    QString display() const;

    /// The same in words, as it is spoken, e.g. Shift Command J.
    QString spoken() const;

    /// The first half of `display`: the modifiers in menu order, e.g. ⇧⌘.
    QString modifierGlyphs() const;

    /// How a key that prints nothing is shown: its code in brackets, e.g. ⟨200⟩.
    static QString bracketed(std::uint32_t keyCode);

    /// The Carbon mask of a key press with these flags (Platform/Keyboard/ModifierFlags.h); flags that a
    /// shortcut can't have are dropped.
    static std::uint32_t carbonModifiers(std::uint32_t flags);
};
