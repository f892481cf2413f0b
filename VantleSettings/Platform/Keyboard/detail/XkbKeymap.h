#pragma once

#include <QByteArray>
#include <QString>

#include <xkbcommon/xkbcommon.h>

#include <cstdint>
#include <memory>
#include <optional>

struct xcb_connection_t;

/// A keymap of Linux desktops: tells what its keys print.
class XkbKeymap
{
public:
    /// Nothing where such a keymap can't be made.
    static std::optional<XkbKeymap> fromServer(xcb_connection_t *connection, std::int32_t device);
    static std::optional<XkbKeymap> fromText(const QByteArray &text);
    /// An empty layout is the library's default: that of XKB_DEFAULT_LAYOUT, or the US one.
    static std::optional<XkbKeymap> fromNames(const QByteArray &layout, const QByteArray &variant);

    /// The text that a key prints unshifted; `currentGroup` is the active layout, from 0. Where that one
    /// isn't Latin, the keymap's first Latin layout is used instead, or the US layout where the keymap has
    /// none. Nothing for a key that prints nothing.
    std::optional<QString> printedText(std::uint16_t virtualKeyCode, xkb_layout_index_t currentGroup) const;

private:
    struct Unref {
        void operator()(xkb_keymap *keymap) const { xkb_keymap_unref(keymap); }
    };

    explicit XkbKeymap(xkb_keymap *keymap) : m_keymap(keymap) {}
    static std::optional<XkbKeymap> owning(xkb_keymap *keymap);
    std::optional<xkb_layout_index_t> latinGroup(xkb_layout_index_t currentGroup) const;
    bool isLatin(xkb_layout_index_t group) const;
    char32_t printed(xkb_keycode_t key, xkb_layout_index_t group, xkb_level_index_t level) const;

    std::unique_ptr<xkb_keymap, Unref> m_keymap;
};
