#include "Components/Switch.h"

#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Window/Accessibility/AccessibleWidget.h"
#include "Platform/Window/Accessibility/Announcement.h"

#include <QPainter>
#include <QPen>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr qreal knobInset = 1.5;

// The arc that turns on the knob while a change is pending. It fades in late: most changes are over by then.
constexpr int turnDuration = 900;    // ms
constexpr qreal progressDelay = 150; // ms
constexpr qreal progressInset = 3;
constexpr int progressSpan = 270; // degrees

void announceChange(QWidget *control, const QAccessible::State &changed)
{
    QAccessibleStateChangeEvent event(control, changed);
    QAccessible::updateAccessibility(&event);
}

/// A check box whose toggle action is a click, so that its owner decides.
class AccessibleSwitch : public AccessibleWidget
{
public:
    explicit AccessibleSwitch(Switch *control) : AccessibleWidget(control, QAccessible::CheckBox) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = AccessibleWidget::state();
        state.checkable = true;
        state.checked = control()->isChecked();
        state.busy = control()->isPending();
        state.disabled |= control()->isPending();
        return state;
    }

    QStringList actionNames() const override
    {
        return control()->isEnabled() && !control()->isPending()
                   ? QStringList(toggleAction()) + AccessibleWidget::actionNames()
                   : AccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override
    {
        if (name == toggleAction())
            control()->click();
        else
            AccessibleWidget::doAction(name);
    }

private:
    Switch *control() const { return static_cast<Switch *>(widget()); }
};

QAccessibleInterface *switchFactory(const QString &, QObject *object)
{
    auto *control = qobject_cast<Switch *>(object);
    return control ? new AccessibleSwitch(control) : nullptr;
}

} // namespace

Switch::Switch(QWidget *parent) : QCheckBox(parent)
{
    QAccessible::installFactory(switchFactory); // has no effect after the first call
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

QSize Switch::sizeHint() const
{
    return {Tokens::switchWidth, Tokens::switchHeight};
}

void Switch::setChecked(bool on)
{
    if (on == isChecked())
        return;
    QCheckBox::setChecked(on);
    slideTo(on ? 1 : 0);
}

void Switch::setPending(bool pending)
{
    if (pending == m_pending)
        return;
    m_pending = pending;
    if (pending) {
        m_stateBefore = isChecked();
        startProgress();
        slideTo(m_stateBefore ? 0 : 1);
    } else if (m_spin != nullptr) {
        m_spin->stop();
    }
    QAccessible::State changed;
    changed.busy = true;
    changed.disabled = true;
    announceChange(this, changed);
    if (!pending && isChecked() == m_stateBefore)
        animateRefusal();
    update();
}

void Switch::nextCheckState()
{
    if (m_pending)
        return;
    const bool target = !isChecked();
    Q_EMIT requested(target);
    if (isChecked() != target && !m_pending)
        animateRefusal();
}

bool Switch::hitButton(const QPoint &position) const
{
    return rect().contains(position);
}

void Switch::slideTo(qreal target)
{
    if (!isVisible() || reducedMotion()) {
        m_knob = target;
        update();
        return;
    }
    QVariantAnimation &slide = stoppedAnimation();
    slide.setDuration(Tokens::switchDuration);
    slide.setKeyValues({{0, m_knob}, {1, target}});
    slide.start();
}

/// Moves the knob to the requested side and back, and tells screen readers that the state is unchanged.
void Switch::animateRefusal()
{
    // A client that toggled the switch may assume that its state has changed.
    QAccessible::State changed;
    changed.checked = true;
    announceChange(this, changed);
    announce(this, u"%1 could not be changed"_s.arg(accessibleName()));

    const qreal rest = isChecked() ? 1 : 0;
    if (!isVisible() || reducedMotion()) {
        slideTo(rest);
        return;
    }
    QVariantAnimation &slide = stoppedAnimation();
    slide.setDuration(2 * Tokens::switchDuration);
    slide.setKeyValues({{0, m_knob}, {0.5, 1 - rest}, {1, rest}});
    slide.start();
}

void Switch::startProgress()
{
    if (reducedMotion())
        return;
    if (m_spin == nullptr) {
        m_spin = new QVariantAnimation(this);
        m_spin->setDuration(turnDuration);
        m_spin->setLoopCount(-1);
        m_spin->setStartValue(0.0);
        m_spin->setEndValue(-360.0);
        connect(m_spin, &QVariantAnimation::valueChanged, this, qOverload<>(&Switch::update));
    }
    m_spin->start();
}

QVariantAnimation &Switch::stoppedAnimation()
{
    if (m_slide == nullptr) {
        m_slide = new QVariantAnimation(this);
        m_slide->setEasingCurve(QEasingCurve::OutCubic);
        connect(m_slide, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
            m_knob = value.toReal();
            update();
        });
    }
    m_slide->stop();
    return *m_slide;
}

void Switch::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(0.4);
    const QRectF track((width() - Tokens::switchWidth) / 2.0, (height() - Tokens::switchHeight) / 2.0,
                       Tokens::switchWidth, Tokens::switchHeight);
    fillShape(painter, capsule(track), mixed(Tokens::switchOff, accentColor(), m_knob));
    const qreal diameter = Tokens::switchHeight - 2 * knobInset;
    const qreal travel = Tokens::switchWidth - 2 * knobInset - diameter;
    const qreal fraction = layoutDirection() == Qt::RightToLeft ? 1 - m_knob : m_knob;
    const QRectF knob(track.left() + knobInset + travel * fraction, track.top() + knobInset, diameter,
                      diameter);
    fillShape(painter, capsule(knob), isDown() ? QColor(230, 230, 230) : QColor(Qt::white));
    if (m_pending)
        paintProgress(painter, knob);
}

/// With reduced motion the arc does not turn.
void Switch::paintProgress(QPainter &painter, const QRectF &knob) const
{
    const bool turns = m_spin != nullptr && m_spin->state() == QAbstractAnimation::Running;
    const qreal angle = turns ? m_spin->currentValue().toReal() : 90;
    if (turns)
        painter.setOpacity(std::clamp(m_spin->currentTime() / progressDelay - 1, 0.0, 1.0));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0, 0, 0, 150), 1.5, Qt::SolidLine, Qt::RoundCap));
    const QRectF circle = knob.adjusted(progressInset, progressInset, -progressInset, -progressInset);
    painter.drawArc(circle, int(angle * 16), progressSpan * 16);
}
