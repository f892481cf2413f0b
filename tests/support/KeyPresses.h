#pragma once

#include <QCoreApplication>
#include <QKeyEvent>

#include <cstdint>

/// A key as the window system reports it.
struct PressedKey {
    std::uint32_t evdevCode = 0;
    std::uint32_t keysym = 0;
    Qt::Key key = Qt::Key_unknown;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    bool isRepeat = false;
};

/// Sends a press as the toolkit does: first as a shortcut, then, unless that was taken, as a key.
/// Returns whether a shortcut could have been triggered, that is whether nobody accepted the override.
inline bool press(QObject &receiver, const PressedKey &pressed)
{
    const auto event = [&pressed](QEvent::Type type) {
        return QKeyEvent(type, pressed.key, pressed.modifiers, pressed.evdevCode + 8, pressed.keysym, 0, {},
                         pressed.isRepeat);
    };
    QKeyEvent shortcut = event(QEvent::ShortcutOverride);
    shortcut.ignore();
    QCoreApplication::sendEvent(&receiver, &shortcut);
    QKeyEvent key = event(QEvent::KeyPress);
    QCoreApplication::sendEvent(&receiver, &key);
    return !shortcut.isAccepted();
}
