#pragma once

#include "ShortcutRecorder/ShortcutRecording.h"
#include "Shortcuts/KeyCombo.h"

#include <QPushButton>
#include <QVariantAnimation>

#include <functional>

/// A button that shows a combination and, once clicked, takes the next one that is pressed. Out of sight it
/// stops waiting.
class ShortcutRecorder : public QPushButton
{
    Q_OBJECT

public:
    using OnRecord = std::function<void(const KeyCombo &)>;

    ShortcutRecorder(const KeyCombo &combo, OnRecord onRecord, QWidget *parent = nullptr);

    /// The combination to show while idle, under the keyboard layout of this moment.
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
    void changeOver();
    void setRecordingProgress(qreal recordingProgress);

    QString m_comboText;
    QString m_spokenCombo;
    ShortcutRecording m_recording;
    bool m_isRecorded = false; ///< whether the last recording has ended with a combination
    QVariantAnimation m_change{this};
    qreal m_recordingProgress = 0; ///< how much of the recording look is on view: 0 idle, 1 recording
};
