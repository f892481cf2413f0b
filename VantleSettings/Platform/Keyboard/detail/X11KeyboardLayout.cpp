#include "Platform/Keyboard/detail/X11KeyboardLayout.h"

#include "Platform/Keyboard/USKeyboardLayout.h"
#include "Platform/Keyboard/detail/XcbXkb.h"

#include <xkbcommon/xkbcommon-x11.h>

#include <cstdlib>

namespace
{

template <class T>
struct Free {
    void operator()(T *memory) const { std::free(memory); } // NOLINT: xcb's answers come from malloc
};

template <class T>
using Answer = std::unique_ptr<T, Free<T>>;

/// The header that every event of the keyboard extension starts with.
struct KeyboardEvent {
    std::uint8_t responseType;
    std::uint8_t kind;
};

constexpr std::uint16_t mapParts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS;
constexpr std::uint16_t groupParts = XCB_XKB_STATE_PART_GROUP_STATE;

} // namespace

std::unique_ptr<X11KeyboardLayout> X11KeyboardLayout::create()
{
    Connection connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()))
        return nullptr;
    std::uint8_t firstEvent = 0;
    if (!xkb_x11_setup_xkb_extension(connection.get(), XKB_X11_MIN_MAJOR_XKB_VERSION,
                                     XKB_X11_MIN_MINOR_XKB_VERSION, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS,
                                     nullptr, nullptr, &firstEvent, nullptr))
        return nullptr;
    const std::int32_t device = xkb_x11_get_core_keyboard_device_id(connection.get());
    if (device < 0)
        return nullptr;
    return std::unique_ptr<X11KeyboardLayout>(
        new X11KeyboardLayout(std::move(connection), firstEvent, device));
}

X11KeyboardLayout::X11KeyboardLayout(Connection connection, std::uint8_t firstEvent, std::int32_t device)
    : m_connection(std::move(connection)),
      m_notifier(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read),
      m_firstEvent(firstEvent),
      m_device(device)
{
    QObject::connect(&m_notifier, &QSocketNotifier::activated, this, &X11KeyboardLayout::readEvents);
    watch();
}

std::optional<QString> X11KeyboardLayout::printedText(std::uint16_t virtualKeyCode)
{
    const auto group = currentGroup();
    readEvents();
    if (!group)
        return USKeyboardLayout::printed(virtualKeyCode);
    const XkbKeymap *map = keymap();
    return map ? map->printedText(virtualKeyCode, *group) : USKeyboardLayout::printed(virtualKeyCode);
}

void X11KeyboardLayout::watch()
{
    constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY |
                                     XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    constexpr std::uint16_t keyboardParts = XCB_XKB_NKN_DETAIL_KEYCODES | XCB_XKB_NKN_DETAIL_DEVICE_ID;
    xcb_xkb_select_events_details_t details{};
    details.affectNewKeyboard = keyboardParts;
    details.newKeyboardDetails = keyboardParts;
    details.affectState = groupParts;
    details.stateDetails = groupParts;
    xcb_xkb_select_events_aux(m_connection.get(), static_cast<xcb_xkb_device_spec_t>(m_device), events, 0, 0,
                              mapParts, mapParts, &details);
    xcb_flush(m_connection.get());
}

/// Drops the keymap when the server has another one. Emits `objectWillChange` for that, and for a switch to
/// another group.
void X11KeyboardLayout::readEvents()
{
    bool changed = false;
    while (const auto event = Answer<xcb_generic_event_t>(xcb_poll_for_event(m_connection.get()))) {
        const auto *keyboardEvent = reinterpret_cast<const KeyboardEvent *>(event.get());
        if ((keyboardEvent->responseType & ~0x80U) != m_firstEvent)
            continue;
        changed = true;
        if (keyboardEvent->kind != XCB_XKB_STATE_NOTIFY)
            m_keymap.reset();
    }
    if (xcb_connection_has_error(m_connection.get()))
        m_notifier.setEnabled(false);
    if (changed)
        Q_EMIT objectWillChange();
}

/// The active group, from 0. The server sends all earlier events before its reply, so readEvents() brings the
/// keymap up to date after this call.
std::optional<std::uint8_t> X11KeyboardLayout::currentGroup()
{
    const auto cookie = xcb_xkb_get_state(m_connection.get(), static_cast<xcb_xkb_device_spec_t>(m_device));
    const Answer<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(m_connection.get(), cookie, nullptr));
    return state ? std::optional(state->group) : std::nullopt;
}

const XkbKeymap *X11KeyboardLayout::keymap()
{
    if (!m_keymap)
        m_keymap = XkbKeymap::fromServer(m_connection.get(), m_device);
    return m_keymap ? &*m_keymap : nullptr;
}
