#include "Platform/Window/Application.h"

#include <QKeyEvent>
#include <QWidget>

namespace
{

/// The same event, marked as a repeat.
class RepeatedKeyEvent : public QKeyEvent
{
public:
    explicit RepeatedKeyEvent(const QKeyEvent &press) : QKeyEvent(press) { m_autoRepeat = true; }
};

/// Whether controls take the key for a click, a choice or a cancel.
bool activates(int key)
{
    switch (key) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Select:
    case Qt::Key_Escape:
        return true;
    default:
        return false;
    }
}

bool isTextField(const QObject &receiver)
{
    return static_cast<const QWidget &>(receiver).testAttribute(Qt::WA_InputMethodEnabled);
}

} // namespace

// An event filter would be too late: on Linux a filter of the toolkit's own, for screen readers, withholds
// key presses and delivers copies without their timestamps.
bool Application::notify(QObject *receiver, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return notifyKey(*receiver, static_cast<QKeyEvent &>(*event));
    default:
        return QApplication::notify(receiver, event);
    }
}

bool Application::notifyKey(QObject &receiver, QKeyEvent &event)
{
    // The window system's events are sent to windows first, and from there to widgets.
    const bool isOriginal = receiver.isWindowType() && event.spontaneous();
    const bool isUnmarked = isOriginal && m_detector.isRepeat(event) && !event.isAutoRepeat();
    if (!isUnmarked)
        return event.isAutoRepeat() ? notifyRepeat(receiver, event) : QApplication::notify(&receiver, &event);
    RepeatedKeyEvent repeat(event);
    const bool delivered = notifyRepeat(receiver, repeat);
    event.setAccepted(repeat.isAccepted());
    return delivered;
}

bool Application::notifyRepeat(QObject &receiver, QKeyEvent &event)
{
    // An accepted override triggers no shortcut and is sent again as a key press.
    const bool isShortcut = event.type() == QEvent::ShortcutOverride;
    const bool isActivation = event.type() == QEvent::KeyPress && activates(event.key()) &&
                              receiver.isWidgetType() && !isTextField(receiver);
    if (!isShortcut && !isActivation)
        return QApplication::notify(&receiver, &event);
    event.accept();
    return true;
}
