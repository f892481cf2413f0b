#include "Platform/Desktop/Pasteboard.h"
#include "Platform/Desktop/detail/ClipboardManager.h"

#include <QClipboard>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QTimer>

#include <chrono>

namespace
{

class DesktopPasteboard : public Pasteboard
{
public:
    void setText(const QString &text) override { QGuiApplication::clipboard()->setText(text); }
};

/// Waits until the toolkit has seen that the clipboard has another owner. The toolkit warns when it is told
/// to clear a clipboard that it no longer owns.
void waitForOtherOwner(const QClipboard &clipboard, std::chrono::milliseconds limit)
{
    QEventLoop loop;
    QObject::connect(&clipboard, &QClipboard::changed, &loop, &QEventLoop::quit);
    QTimer::singleShot(limit, &loop, &QEventLoop::quit);
    if (clipboard.ownsClipboard())
        loop.exec();
}

} // namespace

Pasteboard &Pasteboard::system()
{
    static DesktopPasteboard pasteboard;
    return pasteboard;
}

// On X11 a copied text stays with its program until a clipboard manager has fetched it. At the end of the
// program the toolkit would ask the manager again, for a mere selection too, and wait for five seconds: to
// avoid that, everything that is still owned after the first try is cleared.
void Pasteboard::finish(std::chrono::milliseconds limit)
{
    QClipboard &clipboard = *QGuiApplication::clipboard();
    if (QGuiApplication::platformName() != QStringLiteral("xcb") ||
        (!clipboard.ownsClipboard() && !clipboard.ownsSelection()))
        return;
    const QDeadlineTimer end(limit);
    const auto rest = [&end] { return std::chrono::milliseconds(end.remainingTime()); };
    ClipboardManager manager;
    if (!manager.exists())
        return;
    if (clipboard.ownsClipboard() && manager.save(rest()))
        waitForOtherOwner(clipboard, rest());
    if (clipboard.ownsClipboard())
        clipboard.clear(QClipboard::Clipboard);
    if (clipboard.ownsSelection())
        clipboard.clear(QClipboard::Selection);
}
