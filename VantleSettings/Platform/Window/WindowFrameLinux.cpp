#include "Foundation/Seam.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Home.h"
#include "Platform/Files/Path.h"
#include "Platform/Window/WindowFrame.h"
#include "Platform/Window/detail/SavedFrame.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// The file that holds the frame; nothing without a home.
std::optional<QString> frameFile()
{
    const QString chosen = qEnvironmentVariable("XDG_STATE_HOME");
    if (chosen.startsWith(u'/'))
        return Path::appending(chosen, u"vantle-settings/window"_s);
    const std::optional<QString> home = homeDirectory();
    return home ? std::optional(Path::appending(*home, u".local/state/vantle-settings/window"_s))
                : std::nullopt;
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

/// The line of the file for the window as it is now.
QByteArray frameLine(const QWidget &window, const QString &name)
{
    SavedFrame frame{.size = window.size(), .origin = window.geometry().topLeft()};
    if (window.isMaximized() || window.isFullScreen())
        frame = {.size = window.normalGeometry().size(),
                 .origin = window.normalGeometry().topLeft(),
                 .maximized = window.isMaximized()};
    if (!windowsHaveOrigins())
        frame.origin.reset();
    return frame.line(name);
}

void writeLine(const QByteArray &line)
{
    const std::optional<QString> file = frameFile();
    if (!file)
        return;
    FileSystem &files = Seam<FileSystem>::current();
    files.createDirectory(Path::parent(*file));
    files.write(*file, line);
}

/// Writes a window's frame once it has stayed unchanged for a moment.
class FrameKeeper : public QObject
{
public:
    FrameKeeper(QWidget &window, const QString &name)
        : QObject(&window), m_window(window), m_name(name), m_line(frameLine(window, name))
    {
        constexpr std::chrono::milliseconds settleTime{300}; // longer than the pauses within a drag
        m_settleTimer.setSingleShot(true);
        m_settleTimer.setInterval(settleTime);
        connect(&m_settleTimer, &QTimer::timeout, this, &FrameKeeper::write);
        window.installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Move || event->type() == QEvent::Resize ||
            event->type() == QEvent::WindowStateChange)
            m_settleTimer.start();
        return false;
    }

private:
    void write()
    {
        if (!m_window.isVisible() || m_window.isMinimized())
            return;
        const QByteArray line = frameLine(m_window, m_name);
        if (line != std::exchange(m_line, line))
            writeLine(line);
    }

    const QWidget &m_window;
    const QString m_name;
    QByteArray m_line; ///< what is remembered
    QTimer m_settleTimer;
};

} // namespace

void restoreWindowFrame(QWidget &window, const QString &name)
{
    SavedFrame frame{.size = window.size()};
    if (const std::optional<QString> file = frameFile()) {
        const auto bytes = Seam<FileSystem>::current().read(*file);
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
    writeLine(frameLine(window, name));
}

void keepWindowFrame(QWidget &window, const QString &name)
{
    new FrameKeeper(window, name); // the window owns it
}
