#include "Platform/Keyboard/detail/WaylandKeyboardLayout.h"

#include "Platform/Keyboard/USKeyboardLayout.h"

#include <QFile>

#include <string_view>
#include <utility>

namespace
{

constexpr std::uint32_t seatVersion = 1;

// One each for the registry, the seat's capabilities and the keymap: each is requested when the one before
// arrives.
constexpr int roundtripsUntilKeymap = 3;

WaylandKeyboardLayout *layout(void *data)
{
    return static_cast<WaylandKeyboardLayout *>(data);
}

} // namespace

const wl_registry_listener WaylandKeyboardLayout::registryEvents{
    .global =
        [](void *data, wl_registry *, std::uint32_t name, const char *interface, std::uint32_t) {
            if (std::string_view(interface) == wl_seat_interface.name)
                layout(data)->bindSeat(name);
        },
    .global_remove = [](void *, wl_registry *, std::uint32_t) {},
};

const wl_seat_listener WaylandKeyboardLayout::seatEvents{
    .capabilities =
        [](void *data, wl_seat *, std::uint32_t capabilities) {
            layout(data)->setKeyboardPresent((capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0);
        },
    .name = [](void *, wl_seat *, const char *) {},
};

// Keys and modifiers are sent only to windows, of which this connection has none.
const wl_keyboard_listener WaylandKeyboardLayout::keyboardEvents{
    .keymap = [](void *data, wl_keyboard *, std::uint32_t format, int file,
                 std::uint32_t size) { layout(data)->loadKeymap(format, file, size); },
    .enter = [](void *, wl_keyboard *, std::uint32_t, wl_surface *, wl_array *) {},
    .leave = [](void *, wl_keyboard *, std::uint32_t, wl_surface *) {},
    .key = [](void *, wl_keyboard *, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
    .modifiers = [](void *, wl_keyboard *, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t,
                    std::uint32_t) {},
    .repeat_info = [](void *, wl_keyboard *, std::int32_t, std::int32_t) {},
};

void WaylandKeyboardLayout::Destroy::operator()(wl_display *display) const
{
    wl_display_disconnect(display);
}

void WaylandKeyboardLayout::Destroy::operator()(wl_registry *registry) const
{
    wl_registry_destroy(registry);
}

void WaylandKeyboardLayout::Destroy::operator()(wl_seat *seat) const
{
    wl_seat_destroy(seat);
}

void WaylandKeyboardLayout::Destroy::operator()(wl_keyboard *keyboard) const
{
    wl_keyboard_destroy(keyboard);
}

std::unique_ptr<WaylandKeyboardLayout> WaylandKeyboardLayout::create()
{
    Display display(wl_display_connect(nullptr));
    if (!display)
        return nullptr;
    return std::unique_ptr<WaylandKeyboardLayout>(new WaylandKeyboardLayout(std::move(display)));
}

WaylandKeyboardLayout::WaylandKeyboardLayout(Display display)
    : m_display(std::move(display)),
      m_registry(wl_display_get_registry(m_display.get())),
      m_notifier(wl_display_get_fd(m_display.get()), QSocketNotifier::Read)
{
    QObject::connect(&m_notifier, &QSocketNotifier::activated, this, &WaylandKeyboardLayout::readEvents);
    wl_registry_add_listener(m_registry.get(), &registryEvents, this);
    for (int roundtrip = 0; roundtrip < roundtripsUntilKeymap; ++roundtrip)
        wl_display_roundtrip(m_display.get());
}

std::optional<QString> WaylandKeyboardLayout::printedText(std::uint16_t virtualKeyCode)
{
    if (m_keymap)
        return m_keymap->printedText(virtualKeyCode, 0);
    if (!m_default)
        m_default = XkbKeymap::fromNames({}, {});
    return m_default ? m_default->printedText(virtualKeyCode, 0) : USKeyboardLayout::printed(virtualKeyCode);
}

void WaylandKeyboardLayout::readEvents()
{
    while (wl_display_prepare_read(m_display.get()) != 0)
        wl_display_dispatch_pending(m_display.get());
    wl_display_read_events(m_display.get());
    wl_display_dispatch_pending(m_display.get());
    wl_display_flush(m_display.get());
    if (wl_display_get_error(m_display.get()) != 0)
        m_notifier.setEnabled(false);
}

void WaylandKeyboardLayout::bindSeat(std::uint32_t name)
{
    if (m_seat)
        return;
    m_seat.reset(
        static_cast<wl_seat *>(wl_registry_bind(m_registry.get(), name, &wl_seat_interface, seatVersion)));
    wl_seat_add_listener(m_seat.get(), &seatEvents, this);
}

void WaylandKeyboardLayout::setKeyboardPresent(bool present)
{
    if (present == (m_keyboard != nullptr))
        return;
    if (present) {
        m_keyboard.reset(wl_seat_get_keyboard(m_seat.get()));
        wl_keyboard_add_listener(m_keyboard.get(), &keyboardEvents, this);
        return;
    }
    m_keyboard.reset();
    m_keymap.reset();
    Q_EMIT objectWillChange();
}

void WaylandKeyboardLayout::loadKeymap(std::uint32_t format, int file, std::uint32_t size)
{
    QFile text;
    if (!text.open(file, QFile::ReadOnly, QFile::AutoCloseHandle))
        return;
    m_keymap.reset();
    if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1) {
        if (const uchar *bytes = text.map(0, size, QFile::MapPrivateOption))
            m_keymap = XkbKeymap::fromText(QByteArray(reinterpret_cast<const char *>(bytes), size));
    }
    Q_EMIT objectWillChange();
}
