#pragma once

#include "Platform/Keyboard/KeyboardLayout.h"
#include "Platform/Keyboard/detail/XkbKeymap.h"

#include <QSocketNotifier>

#include <wayland-client.h>

#include <cstdint>
#include <memory>
#include <optional>

/// The keymap of the compositor, over a connection of its own. A compositor tells only the window with the
/// focus which of several layouts is active, so this class always uses the first Latin one. Where the
/// compositor has no keyboard, it uses the default of the keymap library.
class WaylandKeyboardLayout : public KeyboardLayout
{
    Q_OBJECT

public:
    /// Nothing where no compositor answers.
    static std::unique_ptr<WaylandKeyboardLayout> create();

    std::optional<QString> printedText(std::uint16_t virtualKeyCode) override;

private:
    /// Calls the protocol's functions in the source file: they are static, so a deleter type that named them
    /// here would differ in each file.
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
    void bindSeat(std::uint32_t name);
    void setKeyboardPresent(bool present);
    void loadKeymap(std::uint32_t format, int file, std::uint32_t size);

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
