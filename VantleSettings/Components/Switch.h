#pragma once

#include <QCheckBox>
#include <QVariantAnimation>

#include <optional>

/// An on/off switch that asks before it changes: a click keeps the present state and sends `requested`;
/// the owner of the state answers with `setChecked` before returning. Without an answer the knob returns,
/// and a screen reader is told the state that has stayed. An owner that needs time for its answer says so
/// with `setPending`.
class Switch : public QCheckBox
{
    Q_OBJECT

public:
    explicit Switch(QWidget *parent = nullptr);

    /// Shows this state, the knob sliding there when the switch is on screen. Sends no `requested`.
    void setChecked(bool on);

    /// Shows a pending change, the knob at the requested side. Until that ends a press does nothing; the
    /// switch keeps the keyboard focus. If the state is the old one at the end, the knob falls back.
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
    bool m_stateBefore = false;          ///< when the pending change began
    QVariantAnimation *m_spin = nullptr; ///< made when a change is first pending
};
