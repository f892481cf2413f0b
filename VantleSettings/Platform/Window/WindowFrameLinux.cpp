#include "Foundation/Seam.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Home.h"
#include "Platform/Window/WindowFrame.h"
#include "Platform/Window/detail/SavedFrame.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace
{

std::optional<QString> stateDirectory()
{
    const QString chosen = qEnvironmentVariable("XDG_STATE_HOME");
    if (chosen.startsWith(u'/'))
        return chosen + u"/vantle-settings"_s;
    const std::optional<QString> home = homeDirectory();
    return home ? std::optional(*home + u"/.local/state/vantle-settings"_s) : std::nullopt;
}

QList<QRect> availableScreens()
{
    QList<QRect> screens;
    const QScreen *primary = QGuiApplication::primaryScreen();
    for (const QScreen *screen : QGuiApplication::screens()) {
        if (screen == primary)
            screens.prepend(screen->availableGeometry());
        else
            screens.append(screen->availableGeometry());
    }
    return screens;
}

/// Wayland neither tells a window where it is nor lets it choose.
bool windowsHaveOrigins()
{
    return !QGuiApplication::platformName().startsWith(u"wayland");
}

} // namespace

void restoreWindowFrame(QWidget &window, const QString &name)
{
    SavedFrame frame{.size = window.size()};
    if (const std::optional<QString> directory = stateDirectory()) {
        const auto bytes = Seam<FileSystem>::current().read(*directory + u"/window"_s);
        frame = SavedFrame::find(bytes.value_or(QByteArray()), name).value_or(frame);
    }
    frame.size = frame.size.expandedTo(window.minimumSize());
    const QRect place = frame.placed(availableScreens());
    window.resize(place.size().expandedTo(window.minimumSize()));
    if (windowsHaveOrigins())
        window.setGeometry(QRect(place.topLeft(), window.size()));
    if (frame.maximized)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

void saveWindowFrame(const QWidget &window, const QString &name)
{
    const std::optional<QString> directory = stateDirectory();
    if (!directory)
        return;
    SavedFrame frame{.size = window.size(), .origin = window.geometry().topLeft()};
    if (window.isMaximized() || window.isFullScreen())
        frame = {.size = window.normalGeometry().size(),
                 .origin = window.normalGeometry().topLeft(),
                 .maximized = window.isMaximized()};
    if (!windowsHaveOrigins())
        frame.origin.reset();
    FileSystem &files = Seam<FileSystem>::current();
    files.createDirectory(*directory);
    files.write(*directory + u"/window"_s, frame.line(name));
}
