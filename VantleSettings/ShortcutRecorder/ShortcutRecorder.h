#pragma once

#include "ShortcutRecorder/ShortcutRecording.h"
#include "Shortcuts/KeyCombo.h"

#include <QPushButton>
#include <QVariantAnimation>

#include <functional>

/// A button that shows a combination and, after a click, records the next one that is pressed. It stops
/// recording when its page is hidden.
class ShortcutRecorder : public QPushButton
{
    Q_OBJECT

public:
    using OnRecord = std::function<void(const KeyCombo &)>;

    ShortcutRecorder(const KeyCombo &combo, OnRecord onRecord, QWidget *parent = nullptr);

    /// Sets the combination to show while idle, with the key's text in the present keyboard layout.
    void setCombo(const KeyCombo &combo);

    void startRecording() { m_recording.startRecording(); }
    void stopRecording() { m_recording.stopRecording(); }
    bool isRecording() const { return m_recording.isRecording(); }

    /// What the button shows now, in words.
    QString spokenText() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString shownText() const;
    QColor fillColor() const;
    int widthOf(const QString &text) const;
    void announceState();
    void updateRecording();
    void setRecordingProgress(qreal recordingProgress);

    QString m_comboText;
    QString m_spokenCombo;
    ShortcutRecording m_recording;
    bool m_isRecorded = false; ///< whether the last recording has ended with a combination
    QVariantAnimation m_transition{this};
    qreal m_recordingProgress = 0; ///< between the two looks: 0 idle, 1 recording
};
