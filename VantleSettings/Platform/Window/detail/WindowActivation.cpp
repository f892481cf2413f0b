#include "Platform/Window/detail/WindowActivation.h"

#include <QGuiApplication>
#include <QWidget>

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

namespace
{

xcb_atom_t atom(xcb_connection_t *connection, std::string_view name)
{
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, uint16_t(name.size()), name.data()),
                              nullptr),
        &std::free);
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

xcb_window_t rootWindow(xcb_connection_t *connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

/// The time of the user's action, with which the startup id ends; 0 when the id has none.
uint32_t userTime(const QString &startupId)
{
    constexpr QLatin1String mark("_TIME");
    const auto at = startupId.lastIndexOf(mark);
    return at < 0 ? 0 : startupId.mid(at + mark.size()).toUInt();
}

/// Window managers compare this time with that of the user's last action in other windows.
void askForActivation(xcb_connection_t *connection, xcb_window_t window, uint32_t time)
{
    constexpr uint32_t fromAnApplication = 1;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(connection, "_NET_ACTIVE_WINDOW");
    event.data.data32[0] = fromAnApplication;
    event.data.data32[1] = time;
    xcb_send_event(connection, 0, rootWindow(connection),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&event));
}

/// Sends the message that this start is over, in pieces of 20 bytes as the startup notification protocol
/// requires.
void endStartup(xcb_connection_t *connection, xcb_window_t window, const QString &startupId)
{
    const QByteArray message = "remove: ID=" + startupId.toUtf8() + '\0';
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 8;
    event.window = window;
    event.type = atom(connection, "_NET_STARTUP_INFO_BEGIN");
    const auto next = atom(connection, "_NET_STARTUP_INFO");
    for (qsizetype sent = 0; sent < message.size(); sent += qsizetype(sizeof event.data.data8)) {
        const QByteArray piece = message.mid(sent, sizeof event.data.data8);
        std::memset(event.data.data8, 0, sizeof event.data.data8);
        std::memcpy(event.data.data8, piece.constData(), size_t(piece.size()));
        xcb_send_event(connection, 0, rootWindow(connection), XCB_EVENT_MASK_PROPERTY_CHANGE,
                       reinterpret_cast<const char *>(&event));
        event.type = next;
    }
}

} // namespace

void activateWindow(QWidget &window, const LaunchToken &token)
{
    window.raise();
    window.activateWindow();
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection() || token.startupId.isEmpty())
        return;
    const auto native = xcb_window_t(window.winId());
    if (const uint32_t time = userTime(token.startupId); time != 0)
        askForActivation(x11->connection(), native, time);
    endStartup(x11->connection(), native, token.startupId);
    xcb_flush(x11->connection());
}
