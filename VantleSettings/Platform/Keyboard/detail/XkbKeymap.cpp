#include "Platform/Keyboard/detail/XkbKeymap.h"

#include "Platform/Keyboard/KeyCodes.h"
#include "Platform/Keyboard/USKeyboardLayout.h"

#include <xkbcommon/xkbcommon-x11.h>

#include <bitset>

namespace
{

// The key codes of X and Wayland are the kernel's plus eight.
constexpr xkb_keycode_t evdevOffset = 8;

// The fewest of the 26 letters a layout must print unshifted to be Latin: some languages do without q or x.
constexpr std::size_t minimumLatinLetters = 14;

struct UnrefContext {
    void operator()(xkb_context *context) const { xkb_context_unref(context); }
};
using Context = std::unique_ptr<xkb_context, UnrefContext>;

/// The context that keymaps are made in. Its log is off: the user has not asked for a keymap, and needs no
/// message about one that can't be made.
Context newContext()
{
    Context context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    if (context)
        xkb_context_set_log_fn(context.get(), [](xkb_context *, xkb_log_level, const char *, va_list) {});
    return context;
}

} // namespace

std::optional<XkbKeymap> XkbKeymap::fromServer(xcb_connection_t *connection, std::int32_t device)
{
    const Context context = newContext();
    return owning(context ? xkb_x11_keymap_new_from_device(context.get(), connection, device,
                                                           XKB_KEYMAP_COMPILE_NO_FLAGS)
                          : nullptr);
}

std::optional<XkbKeymap> XkbKeymap::fromText(const QByteArray &text)
{
    const Context context = newContext();
    return owning(context ? xkb_keymap_new_from_string(context.get(), text.constData(),
                                                       XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS)
                          : nullptr);
}

std::optional<XkbKeymap> XkbKeymap::fromNames(const QByteArray &layout, const QByteArray &variant)
{
    const xkb_rule_names names{nullptr, nullptr, layout.constData(), variant.constData(), nullptr};
    const Context context = newContext();
    return owning(context ? xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS)
                          : nullptr);
}

std::optional<QString> XkbKeymap::printedText(std::uint16_t virtualKeyCode,
                                              xkb_layout_index_t currentGroup) const
{
    const auto group = latinGroup(currentGroup);
    if (!group)
        return USKeyboardLayout::printed(virtualKeyCode);
    const auto evdevCode = KeyCodes::evdevCode(virtualKeyCode);
    if (!evdevCode)
        return std::nullopt;
    const xkb_keycode_t key = *evdevCode + evdevOffset;
    char32_t character = printed(key, *group, 0);
    // The digits of a keypad are on the second level, with Num Lock or Shift; the first has the arrows.
    if (character == 0 && KeyCodes::isKeypad(virtualKeyCode))
        character = printed(key, *group, 1);
    return character == 0 ? std::nullopt : std::optional(QString::fromUcs4(&character, 1));
}

std::optional<XkbKeymap> XkbKeymap::owning(xkb_keymap *keymap)
{
    return keymap ? std::optional(XkbKeymap(keymap)) : std::nullopt;
}

std::optional<xkb_layout_index_t> XkbKeymap::latinGroup(xkb_layout_index_t currentGroup) const
{
    if (isLatin(currentGroup))
        return currentGroup;
    for (xkb_layout_index_t group = 0; group < xkb_keymap_num_layouts(m_keymap.get()); ++group) {
        if (isLatin(group))
            return group;
    }
    return std::nullopt;
}

bool XkbKeymap::isLatin(xkb_layout_index_t group) const
{
    std::bitset<26> letters;
    const xkb_keycode_t last = xkb_keymap_max_keycode(m_keymap.get());
    for (xkb_keycode_t key = xkb_keymap_min_keycode(m_keymap.get()); key <= last; ++key) {
        const char32_t character = printed(key, group, 0);
        if (character >= U'a' && character <= U'z')
            letters.set(character - U'a');
    }
    return letters.count() >= minimumLatinLetters;
}

/// The character that a key prints, 0 for none. For a key with fewer layouts than the keymap, `group` wraps
/// around.
char32_t XkbKeymap::printed(xkb_keycode_t key, xkb_layout_index_t group, xkb_level_index_t level) const
{
    const xkb_layout_index_t groups = xkb_keymap_num_layouts_for_key(m_keymap.get(), key);
    if (groups == 0)
        return 0;
    const xkb_keysym_t *symbols = nullptr;
    if (xkb_keymap_key_get_syms_by_level(m_keymap.get(), key, group % groups, level, &symbols) != 1)
        return 0;
    const char32_t character = xkb_keysym_to_utf32(symbols[0]);
    const bool isControl = character < U' ' || (character >= U'\x7f' && character < U'\xa0');
    return isControl ? 0 : character;
}
