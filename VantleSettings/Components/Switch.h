#pragma once

#include <QCheckBox>
#include <QVariantAnimation>

#include <optional>

/// An on/off switch that asks before it changes: a click keeps the present state and emits `requested`; the
/// owner of the state calls `setChecked` before its slot returns. If it does not, the knob moves back, and a
/// screen reader is told that the state is unchanged. An owner that needs more time calls `setPending`.
class Switch : public QCheckBox
{
    Q_OBJECT

public:
    explicit Switch(QWidget *parent = nullptr);

    /// Shows this state, with an animation if the switch is on screen. Does not emit `requested`.
    void setChecked(bool on);

    /// Begins or ends a pending change. Meanwhile the knob is at the requested side and a press does nothing;
    /// the switch keeps the keyboard focus. If the state is unchanged at the end, the knob moves back.
    void setPending(bool pending);
    bool isPending() const { return m_pending; }

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
    void animateRefusal();
    QVariantAnimation &stoppedAnimation();
    void startProgress();
    void paintProgress(QPainter &painter, const QRectF &knob) const;

    qreal m_knob = 0;                     ///< where the knob is, from off (0) to on (1)
    QVariantAnimation *m_slide = nullptr; ///< made when the knob first moves
    bool m_pending = false;
    bool m_stateBefore = false;          ///< the state when the pending change began
    QVariantAnimation *m_spin = nullptr; ///< turns the arc; made when a change is first pending
};
