#include "ShortcutRecorder/ShortcutRecorder.h"

#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Foundation/KeyNames.h"
#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "Platform/Window/Accessibility/AccessibleWidget.h"
#include "Platform/Window/Accessibility/Announcement.h"

#include <QHideEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int minimumTextWidth = 96;
constexpr int paddingSides = 12;
constexpr int paddingVertical = 6;
constexpr float idleOpacity = 0.55F;
constexpr float hoverOpacity = 0.8F;
constexpr qreal pressedOpacity = 0.6;

const QString pressShortcut = u"Press shortcut…"_s;

/// The combination as shown. A file can hold a code that no key has, which `KeyCombo::display` doesn't take.
QString shown(const KeyCombo &combo)
{
    if (combo.keyCode > std::numeric_limits<std::uint16_t>::max())
        return combo.modifierGlyphs() + KeyCombo::bracketed(combo.keyCode);
    return combo.display();
}

QString spoken(const KeyCombo &combo)
{
    if (combo.keyCode > std::numeric_limits<std::uint16_t>::max())
        return combinationInWords(combo.modifierGlyphs(), KeyCombo::bracketed(combo.keyCode));
    return combo.spoken();
}

/// Describes what is shown in words: screen readers have no words for key symbols.
class AccessibleRecorder : public AccessibleButton
{
public:
    explicit AccessibleRecorder(ShortcutRecorder *recorder) : AccessibleButton(recorder) {}

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Description)
            return static_cast<const ShortcutRecorder *>(widget())->spokenText();
        return AccessibleButton::text(kind);
    }
};

QAccessibleInterface *recorderFactory(const QString &, QObject *object)
{
    auto *recorder = qobject_cast<ShortcutRecorder *>(object);
    return recorder ? new AccessibleRecorder(recorder) : nullptr;
}

} // namespace

ShortcutRecorder::ShortcutRecorder(const KeyCombo &combo, OnRecord onRecord, QWidget *parent)
    : QPushButton(parent)
{
    QAccessible::installFactory(recorderFactory); // has no effect after the first call
    setTextStyle(*this, TextStyle::size12SemiboldMono);
    setFlat(true);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_transition.setDuration(Tokens::recorderDuration);
    m_transition.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_transition, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &progress) { setRecordingProgress(progress.toReal()); });
    connect(this, &QPushButton::clicked, &m_recording, &ShortcutRecording::toggleRecording);
    connect(&m_recording, &ShortcutRecording::recorded, this, [this] { m_isRecorded = true; });
    connect(&m_recording, &ShortcutRecording::recorded, this, std::move(onRecord));
    connect(&m_recording, &ShortcutRecording::recordingChanged, this, &ShortcutRecorder::updateRecording);
    setCombo(combo);
}

void ShortcutRecorder::setCombo(const KeyCombo &combo)
{
    m_comboText = shown(combo);
    m_spokenCombo = spoken(combo);
    changeAccessibleDescription(this, shownText());
    updateGeometry();
    update();
}

QSize ShortcutRecorder::sizeHint() const
{
    const int idle = widthOf(m_comboText);
    const int recording = widthOf(pressShortcut);
    const int width = idle + static_cast<int>(std::lround((recording - idle) * m_recordingProgress));
    return {width + 2 * paddingSides, fontMetrics().height() + 2 * paddingVertical};
}

void ShortcutRecorder::hideEvent(QHideEvent *event)
{
    if (!event->spontaneous()) // minimising the window does not hide the page
        stopRecording();
    QPushButton::hideEvent(event);
}

void ShortcutRecorder::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (isDown())
        painter.setOpacity(pressedOpacity);
    const QColor background = mixed(fillColor(), accentColor(), m_recordingProgress);
    fillShape(painter, continuousRectangle(rect(), Tokens::buttonRadius), background);
    painter.setPen(mixed(textColor(TextColor::primary), textColor(TextColor::white), m_recordingProgress));
    painter.drawText(rect(), Qt::AlignCenter, shownText());
}

QString ShortcutRecorder::shownText() const
{
    return isRecording() ? pressShortcut : m_comboText;
}

QColor ShortcutRecorder::fillColor() const
{
    QColor color = Tokens::quaternaryFill;
    color.setAlphaF(color.alphaF() * (underMouse() ? hoverOpacity : idleOpacity));
    return color;
}

int ShortcutRecorder::widthOf(const QString &text) const
{
    return std::max(minimumTextWidth, fontMetrics().horizontalAdvance(text));
}

QString ShortcutRecorder::spokenText() const
{
    return isRecording() ? pressShortcut : m_spokenCombo;
}

void ShortcutRecorder::announceState()
{
    changeAccessibleDescription(this, shownText());
    if (!isVisible())
        return;
    const bool isCancelled = !isRecording() && !m_isRecorded;
    announce(this, isCancelled ? u"Cancelled, "_s + spokenText() : spokenText());
}

void ShortcutRecorder::updateRecording()
{
    if (isRecording())
        m_isRecorded = false;
    // The new combination is set on the next turn of the event loop; now the old one would be announced.
    QMetaObject::invokeMethod(this, &ShortcutRecorder::announceState, Qt::QueuedConnection);
    const qreal target = isRecording() ? 1 : 0;
    m_transition.stop();
    if (!isVisible() || reducedMotion()) {
        setRecordingProgress(target);
        return;
    }
    m_transition.setStartValue(m_recordingProgress);
    m_transition.setEndValue(target);
    m_transition.start();
}

void ShortcutRecorder::setRecordingProgress(qreal recordingProgress)
{
    m_recordingProgress = recordingProgress;
    updateGeometry();
    update();
}
