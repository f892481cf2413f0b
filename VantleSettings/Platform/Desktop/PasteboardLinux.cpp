#include "Platform/Desktop/Pasteboard.h"
#include "Platform/Desktop/detail/ClipboardManager.h"

#include <QClipboard>
#include <QEventLoop>
#include <QGuiApplication>
#include <QTimer>

#include <chrono>

using namespace std::chrono_literals;

namespace
{

class DesktopPasteboard : public Pasteboard
{
public:
    void setText(const QString &text) override { QGuiApplication::clipboard()->setText(text); }
};

constexpr auto managerTimeout = 500ms;

/// Waits until the toolkit has seen that the clipboard has another owner. It complains when it is told to
/// give up what it has lost already.
void awaitLoss(const QClipboard &clipboard)
{
    QEventLoop loop;
    QObject::connect(&clipboard, &QClipboard::changed, &loop, &QEventLoop::quit);
    QTimer::singleShot(managerTimeout, &loop, &QEventLoop::quit);
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
void Pasteboard::finish()
{
    QClipboard &clipboard = *QGuiApplication::clipboard();
    if (QGuiApplication::platformName() != QStringLiteral("xcb") ||
        (!clipboard.ownsClipboard() && !clipboard.ownsSelection()))
        return;
    ClipboardManager manager;
    if (!manager.exists())
        return;
    if (clipboard.ownsClipboard() && manager.save(managerTimeout))
        awaitLoss(clipboard);
    if (clipboard.ownsClipboard())
        clipboard.clear(QClipboard::Clipboard);
    if (clipboard.ownsSelection())
        clipboard.clear(QClipboard::Selection);
}
