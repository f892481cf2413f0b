#pragma once

#include "Platform/Keyboard/KeyboardLayout.h"
#include "Platform/Keyboard/detail/XkbKeymap.h"

#include <QSocketNotifier>

#include <xcb/xcb.h>

#include <cstdint>
#include <memory>
#include <optional>

/// The keymap of the X server and its active group, over a connection of its own.
class X11KeyboardLayout : public KeyboardLayout
{
    Q_OBJECT

public:
    /// Nothing where no server with the keyboard extension answers.
    static std::unique_ptr<X11KeyboardLayout> create();

    std::optional<QString> printedText(std::uint16_t virtualKeyCode) override;

private:
    struct Disconnect {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };
    using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

    X11KeyboardLayout(Connection connection, std::uint8_t firstEvent, std::int32_t device);

    void watch();
    void readEvents();
    std::optional<std::uint8_t> currentGroup();
    const XkbKeymap *keymap(); ///< null where the server has none to give

    Connection m_connection;
    QSocketNotifier m_notifier;
    std::uint8_t m_firstEvent;
    std::int32_t m_device;
    std::optional<XkbKeymap> m_keymap; ///< until the server says that it has another one
};
