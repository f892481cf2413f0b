#pragma once

#include <QString>

#include <xkbcommon/xkbcommon.h>

#include <cstdint>
#include <memory>
#include <optional>

/// A keymap of Linux desktops, asked for what its keys print.
class XkbKeymap
{
public:
    /// Takes over the caller's reference.
    explicit XkbKeymap(xkb_keymap *keymap) : m_keymap(keymap) {}

    /// The text that a key prints unshifted; `currentGroup` is the layout in force, from 0. A layout that
    /// does not write Latin gives way to the keymap's first that does; nothing for a key that prints nothing.
    /// Only for a keymap that has a Latin layout.
    std::optional<QString> printedText(std::uint16_t virtualKeyCode, xkb_layout_index_t currentGroup) const;

    /// Whether any of its layouts writes Latin.
    bool hasLatinGroup() const;

private:
    struct Unref {
        void operator()(xkb_keymap *keymap) const { xkb_keymap_unref(keymap); }
    };

    std::optional<xkb_layout_index_t> latinGroup(xkb_layout_index_t currentGroup) const;
    bool isLatin(xkb_layout_index_t group) const;
    char32_t printed(xkb_keycode_t key, xkb_layout_index_t group, xkb_level_index_t level) const;

    std::unique_ptr<xkb_keymap, Unref> m_keymap;
};
