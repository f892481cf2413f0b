#include "Platform/Keyboard/KeyCodes.h"
#include "Platform/Keyboard/KeyDownMonitor.h"
#include "Platform/Keyboard/ModifierFlags.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodQueryEvent>
#include <QKeyEvent>
#include <QObject>

#include <xkbcommon/xkbcommon-keysyms.h>

#include <optional>
#include <utility>

namespace
{

// The key codes of X and Wayland are the kernel's plus eight.
constexpr std::uint32_t evdevOffset = 8;

constexpr std::uint16_t escapeKeyCode = 53;

/// Whether the layout makes the key a modifier or a lock; it can do so with any key.
bool isModifier(std::uint32_t keysym)
{
    const bool isPlain = keysym >= XKB_KEY_Shift_L && keysym <= XKB_KEY_Hyper_R;
    const bool isOfExtension = keysym >= XKB_KEY_ISO_Lock && keysym <= XKB_KEY_ISO_Level5_Lock;
    return isPlain || isOfExtension || keysym == XKB_KEY_Num_Lock || keysym == XKB_KEY_Mode_switch;
}

std::optional<std::uint32_t> keyCode(const QKeyEvent &event)
{
    // Where the layout makes Caps Lock an Escape key, it cancels like that one.
    if (event.nativeVirtualKey() == XKB_KEY_Escape)
        return escapeKeyCode;
    if (isModifier(event.nativeVirtualKey()) || event.nativeScanCode() < evdevOffset)
        return std::nullopt;
    return KeyCodes::virtualKeyCode(event.nativeScanCode() - evdevOffset);
}

/// Super stands for Command. Qt has determined the modifiers from the keymap: AltGr, Caps Lock and Num Lock
/// are none of the four.
std::uint32_t modifierFlags(Qt::KeyboardModifiers modifiers)
{
    std::uint32_t flags = 0;
    if (modifiers & Qt::MetaModifier)
        flags |= ModifierFlags::command;
    if (modifiers & Qt::ShiftModifier)
        flags |= ModifierFlags::shift;
    if (modifiers & Qt::AltModifier)
        flags |= ModifierFlags::option;
    if (modifiers & Qt::ControlModifier)
        flags |= ModifierFlags::control;
    return flags;
}

} // namespace

/// Sees every event of the application before its receiver does.
class KeyDownMonitor::Tap : public QObject
{
public:
    explicit Tap(Handler handler) : m_handler(std::move(handler))
    {
        QCoreApplication::instance()->installEventFilter(this);
        updateInputMethod();
    }

    ~Tap() override
    {
        QCoreApplication::instance()->removeEventFilter(this);
        updateInputMethod();
    }

    Q_DISABLE_COPY_MOVE(Tap)

    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::ShortcutOverride: // accepted, it triggers no menu item and is sent again as a key press
            event->accept();
            return true;
        case QEvent::KeyPress:
            event->accept();
            keyPressed(static_cast<const QKeyEvent &>(*event));
            return true;
        case QEvent::InputMethod:
            return true;
        case QEvent::InputMethodQuery:
            return refuseInputMethod(static_cast<QInputMethodQueryEvent &>(*event));
        default:
            return QObject::eventFilter(receiver, event);
        }
    }

private:
    void keyPressed(const QKeyEvent &event)
    {
        const auto code = keyCode(event);
        if (!code)
            return;
        const Handler held = m_handler; // the handler may destroy this object
        held({*code, modifierFlags(event.modifiers()), event.isAutoRepeat()});
    }

    static bool refuseInputMethod(QInputMethodQueryEvent &query)
    {
        query.setValue(Qt::ImEnabled, false);
        query.accept();
        return true;
    }

    static void updateInputMethod() { QGuiApplication::inputMethod()->update(Qt::ImEnabled); }

    Handler m_handler;
};

KeyDownMonitor::KeyDownMonitor(Handler handler) : m_tap(std::make_unique<Tap>(std::move(handler)))
{
}

KeyDownMonitor::~KeyDownMonitor() = default;
