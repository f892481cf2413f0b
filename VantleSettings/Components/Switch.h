#pragma once

#include <QCheckBox>
#include <QVariantAnimation>

#include <optional>

/// An on/off switch that asks before it changes: a click keeps the present state and sends `requested`;
/// whoever owns the state answers with `setChecked` before returning. Without an answer the knob falls back,
/// and a screen reader hears the state that has stayed.
class Switch : public QCheckBox
{
    Q_OBJECT

public:
    explicit Switch(QWidget *parent = nullptr);

    /// Shows this state, the knob sliding there when the switch is on screen. Sends no `requested`.
    void setChecked(bool on);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void requested(bool on);

protected:
    void nextCheckState() override;
    bool hitButton(const QPoint &position) const override;
    void paintEvent(QPaintEvent *event) override;

private:
    void slideTo(qreal target);
    void fallBack();
    QVariantAnimation &startableSlide();

    qreal m_knob = 0;                     ///< where the knob is, from off (0) to on (1)
    QVariantAnimation *m_slide = nullptr; ///< made when the knob first moves
};
