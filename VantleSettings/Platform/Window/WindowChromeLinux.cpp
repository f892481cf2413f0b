#include "Platform/Window/FirstFrame.h"
#include "Platform/Window/WindowChrome.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>
#include <QWidget>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace
{

xcb_intern_atom_cookie_t askForAtom(xcb_connection_t *connection, std::string_view name)
{
    return xcb_intern_atom(connection, 0, uint16_t(name.size()), name.data());
}

xcb_atom_t atom(xcb_connection_t *connection, xcb_intern_atom_cookie_t asked)
{
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection, asked, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

/// The connection to the X server; null under other window systems.
xcb_connection_t *x11Connection()
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr; // the offscreen platform has the one without the other
}

/// Window managers that draw light and dark frames read this property to choose.
void askForDarkFrame(xcb_connection_t *connection, xcb_window_t window)
{
    constexpr std::string_view variant = "dark";
    const auto property = askForAtom(connection, "_GTK_THEME_VARIANT");
    const auto type = askForAtom(connection, "UTF8_STRING");
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, atom(connection, property),
                        atom(connection, type), 8, uint32_t(variant.size()), variant.data());
}

QPixmap applicationIcon(int extent)
{
    // Up to 24 pixels a simpler drawing is clearer.
    QSvgRenderer drawing(extent <= 24 ? QStringLiteral(":/icon/vantle-settings-small.svg")
                                      : QStringLiteral(":/icon/vantle-settings.svg"));
    QPixmap picture(extent, extent);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter, QRectF(0, 0, extent, extent));
    return picture;
}

/// For task lists that don't look for the program's desktop entry.
void showIcon(QWidget &window)
{
    QIcon icon;
    for (const int extent : {16, 24, 32, 48, 64, 128})
        icon.addPixmap(applicationIcon(extent));
    window.setWindowIcon(icon);
}

} // namespace

void prepareWindow(QWidget &window)
{
    xcb_connection_t *connection = x11Connection();
    if (!connection)
        return;
    askForDarkFrame(connection, xcb_window_t(window.winId()));
    afterFirstFrame(window, [&window] { showIcon(window); });
}

void extendUnderTitleBar(QWidget &)
{
}

int titleBarHeight(const QWidget &)
{
    return 0;
}

// On X11 a compositing manager owns the selection of this name.
bool windowsAreComposited()
{
    xcb_connection_t *connection = x11Connection();
    if (!connection)
        return true;
    const xcb_atom_t selection = atom(connection, askForAtom(connection, "_NET_WM_CM_S0"));
    const std::unique_ptr<xcb_get_selection_owner_reply_t, decltype(&std::free)> reply(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection), nullptr),
        &std::free);
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void bringToFront(QWidget &window)
{
    window.raise();
    window.activateWindow();
}
