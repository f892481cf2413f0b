#include "ShortcutRecorder/ShortcutRecording.h"

#include <QPointer>

namespace
{

constexpr std::uint32_t escapeKeyCode = 53;

// Shift alone makes no shortcut: it is used for typing.
constexpr std::uint32_t qualifyingModifiers = KeyCombo::command | KeyCombo::option | KeyCombo::control;

QPointer<ShortcutRecording> &recordingUnderWay()
{
    static QPointer<ShortcutRecording> recording;
    return recording;
}

} // namespace

ShortcutRecording::ShortcutRecording(QObject *parent) : QObject(parent)
{
}

ShortcutRecording::~ShortcutRecording() = default;

void ShortcutRecording::startRecording()
{
    if (isRecording())
        return;
    if (ShortcutRecording *other = recordingUnderWay())
        other->stopRecording();
    recordingUnderWay() = this;
    m_monitor = std::make_unique<KeyDownMonitor>([this](const KeyDown &key) { keyDown(key); });
    Q_EMIT recordingChanged();
}

void ShortcutRecording::stopRecording()
{
    if (!isRecording())
        return;
    m_monitor.reset();
    Q_EMIT recordingChanged();
}

void ShortcutRecording::toggleRecording()
{
    if (isRecording())
        stopRecording();
    else
        startRecording();
}

void ShortcutRecording::keyDown(const KeyDown &key)
{
    if (!isRecording() || key.isRepeat)
        return;
    if (key.keyCode == escapeKeyCode) {
        stopRecording();
        return;
    }
    const KeyCombo combo{key.keyCode, KeyCombo::carbonModifiers(key.modifierFlags)};
    if ((combo.modifiers & qualifyingModifiers) == 0)
        return;
    const QPointer<ShortcutRecording> self(this);
    Q_EMIT recorded(combo);
    if (self)
        stopRecording();
}
