#include "Platform/Window/FirstFrame.h"
#include "Platform/Window/WindowChrome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QPlatformSurfaceEvent>
#include <QStandardPaths>
#include <QWidget>
#include <QWindow>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string>
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
    return x11 ? x11->connection() : nullptr; // the offscreen platform has no connection
}

void setText(xcb_connection_t *connection, xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
             std::string_view text)
{
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, property, type, 8, uint32_t(text.size()),
                        text.data());
}

/// The file of KWin's dark colours for frames; empty where it is not installed.
QString darkColors()
{
    return QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                  QStringLiteral("color-schemes/BreezeDark.colors"));
}

/// Chooses the frames that the toolkit draws under Wayland compositors that draw none: its newer frames, for
/// GNOME, follow the desktop's colours, the older ones the program's.
void chooseFramesInOurColors()
{
    constexpr const char *variable = "QT_WAYLAND_DECORATION";
    if (!qEnvironmentVariableIsSet(variable))
        qputenv(variable, "bradient");
}

/// Asks for a dark frame around every window of the program, dialogs too, when the window is created. Most
/// window managers that have light and dark frames choose by a theme variant, KWin by a file of colours.
class DarkFrames : public QObject
{
public:
    DarkFrames(xcb_connection_t *connection, const QString &colors)
        : QObject(qGuiApp), m_connection(connection), m_colors(QFile::encodeName(colors).toStdString())
    {
        const auto variant = askForAtom(connection, "_GTK_THEME_VARIANT");
        const auto utf8 = askForAtom(connection, "UTF8_STRING");
        const auto scheme = askForAtom(connection, "_KDE_NET_WM_COLOR_SCHEME");
        m_variant = atom(connection, variant);
        m_utf8 = atom(connection, utf8);
        m_scheme = atom(connection, scheme);
        qGuiApp->installEventFilter(this);
    }

    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() != QEvent::PlatformSurface ||
            static_cast<QPlatformSurfaceEvent *>(event)->surfaceEventType() !=
                QPlatformSurfaceEvent::SurfaceCreated)
            return false;
        const auto *window = qobject_cast<QWindow *>(object);
        if (window && (window->type() == Qt::Window || window->type() == Qt::Dialog))
            ask(xcb_window_t(window->winId()));
        return false;
    }

private:
    void ask(xcb_window_t window) const
    {
        setText(m_connection, window, m_variant, m_utf8, "dark");
        if (!m_colors.empty())
            setText(m_connection, window, m_scheme, XCB_ATOM_STRING, m_colors);
    }

    xcb_connection_t *m_connection;
    std::string m_colors;
    xcb_atom_t m_variant = XCB_ATOM_NONE;
    xcb_atom_t m_utf8 = XCB_ATOM_NONE;
    xcb_atom_t m_scheme = XCB_ATOM_NONE;
};

/// The icon for task lists that don't look for the program's desktop entry. The build has rendered it into
/// pictures of bare pixels, each named by its width; PNG files would need six times as many instructions.
QIcon applicationIcon()
{
    QIcon icon;
    for (const QFileInfo &picture : QDir(QStringLiteral(":/icon")).entryInfoList()) {
        QFile file(picture.filePath());
        QImage pixels(QSize(1, 1) * picture.fileName().toInt(), QImage::Format_ARGB32_Premultiplied);
        if (file.open(QIODevice::ReadOnly) &&
            file.read(reinterpret_cast<char *>(pixels.bits()), pixels.sizeInBytes()) == pixels.sizeInBytes())
            icon.addPixmap(QPixmap::fromImage(pixels));
    }
    return icon;
}

} // namespace

void prepareWindow(QWidget &window)
{
    const QString colors = darkColors();
    // The platform theme of KWin's desktop passes this property on under Wayland; under X11, without it, the
    // theme would remove the colour scheme that is set for the window below.
    qGuiApp->setProperty("KDE_COLOR_SCHEME_PATH", colors);
    xcb_connection_t *connection = x11Connection();
    if (!connection) {
        chooseFramesInOurColors();
        return;
    }
    new DarkFrames(connection, colors); // the application owns it
    afterFirstFrame(window, [&window] { window.setWindowIcon(applicationIcon()); });
}

void extendUnderTitleBar(QWidget &)
{
}

int titleBarHeight(const QWidget &)
{
    return 0;
}

// On X11 a compositing manager owns the selection of this name. It may start or end at any time, so each call
// asks for it.
bool windowsAreComposited()
{
    xcb_connection_t *connection = x11Connection();
    if (!connection)
        return true;
    static const xcb_atom_t selection = atom(connection, askForAtom(connection, "_NET_WM_CM_S0"));
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
