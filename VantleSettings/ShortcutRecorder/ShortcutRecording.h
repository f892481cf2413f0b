#pragma once

#include "Platform/Keyboard/KeyDownMonitor.h"
#include "Shortcuts/KeyCombo.h"

#include <QObject>

#include <memory>

/// Waits for the user to press a combination. While it does, it has every key-down of the program; only one
/// recording does at a time.
class ShortcutRecording : public QObject
{
    Q_OBJECT

public:
    explicit ShortcutRecording(QObject *parent = nullptr);
    ~ShortcutRecording() override;

    bool isRecording() const { return m_monitor != nullptr; }

    /// Stops whichever other recording is under way.
    void startRecording();

    /// Records nothing; does nothing when idle.
    void stopRecording();

    /// What a click does: starts, or stops without recording.
    void toggleRecording();

    /// Takes a key-down of the program; the monitor passes each one on while recording.
    void keyDown(const KeyDown &key);

Q_SIGNALS:
    /// The user has pressed a combination with Command, Option or Control; sent before the recording stops.
    void recorded(const KeyCombo &combo);
    void recordingChanged();

private:
    std::unique_ptr<KeyDownMonitor> m_monitor; ///< present exactly while recording
};
