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

/// Waits until the toolkit has seen that the clipboard has another owner. It warns when it is told to
/// give up what it has lost already.
void awaitLoss(const QClipboard &clipboard, std::chrono::milliseconds limit)
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

// On X11 a copied text is its program's, until a manager has fetched it. The toolkit would ask for that
// itself, for a mere selection too, and wait for five seconds: what is still owned after the first try is
// given up.
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
        awaitLoss(clipboard, rest());
    if (clipboard.ownsClipboard())
        clipboard.clear(QClipboard::Clipboard);
    if (clipboard.ownsSelection())
        clipboard.clear(QClipboard::Selection);
}
