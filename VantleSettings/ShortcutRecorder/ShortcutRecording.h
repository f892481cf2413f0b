#pragma once

#include "Platform/Keyboard/KeyDownMonitor.h"
#include "Shortcuts/KeyCombo.h"

#include <QObject>

#include <memory>

/// Waits for the user to press a combination. While it waits, no key-down reaches anything else in the
/// program. Only one recording waits at a time.
class ShortcutRecording : public QObject
{
    Q_OBJECT

public:
    explicit ShortcutRecording(QObject *parent = nullptr);
    ~ShortcutRecording() override;

    bool isRecording() const { return m_monitor != nullptr; }

    /// Starts to wait, and stops any other recording.
    void startRecording();

    /// Stops without recording anything; does nothing when idle.
    void stopRecording();

    /// Starts to wait, or stops without recording anything.
    void toggleRecording();

    /// Handles a key-down. While recording, the monitor calls it for every key that a shortcut can hold.
    void keyDown(const KeyDown &key);

Q_SIGNALS:
    /// The user has pressed a combination with Command, Option or Control; sent before the recording stops.
    void recorded(const KeyCombo &combo);
    void recordingChanged();

private:
    std::unique_ptr<KeyDownMonitor> m_monitor; ///< exists exactly while recording
};
