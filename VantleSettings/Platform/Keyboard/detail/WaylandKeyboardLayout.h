#pragma once

#include "Platform/Keyboard/KeyboardLayout.h"
#include "Platform/Keyboard/detail/XkbKeymap.h"

#include <QSocketNotifier>

#include <wayland-client.h>

#include <cstdint>
#include <memory>
#include <optional>

/// The keymap of the compositor, over a connection of its own. Which of several layouts is in force, a
/// compositor tells the window with the focus only, so the first Latin one stands for all. Where the
/// compositor has no keyboard, the default of the keymap library holds.
class WaylandKeyboardLayout : public KeyboardLayout
{
    Q_OBJECT

public:
    /// Nothing where no compositor answers.
    static std::unique_ptr<WaylandKeyboardLayout> create();

    std::optional<QString> printedText(std::uint16_t virtualKeyCode) override;

private:
    /// Plain members: the protocol's own functions are static, and differ in each file that names them.
    struct Destroy {
        void operator()(wl_display *display) const;
        void operator()(wl_registry *registry) const;
        void operator()(wl_seat *seat) const;
        void operator()(wl_keyboard *keyboard) const;
    };
    template <class T>
    using Owned = std::unique_ptr<T, Destroy>;
    using Display = Owned<wl_display>;

    explicit WaylandKeyboardLayout(Display display);

    void readEvents();
    void takeSeat(std::uint32_t name);
    void takeKeyboard(bool present);
    void takeKeymap(std::uint32_t format, int file, std::uint32_t size);

    static const wl_registry_listener registryEvents;
    static const wl_seat_listener seatEvents;
    static const wl_keyboard_listener keyboardEvents;

    Display m_display;
    Owned<wl_registry> m_registry;
    Owned<wl_seat> m_seat;
    Owned<wl_keyboard> m_keyboard;
    QSocketNotifier m_notifier;
    std::optional<XkbKeymap> m_keymap;  ///< the compositor's
    std::optional<XkbKeymap> m_default; ///< where the compositor has none
};
