#include "Components/Style/ScrollBarFade.h"

#include "Platform/Desktop/Appearance/Palette.h"

#include <QEvent>
#include <QScrollBar>
#include <QTimerEvent>

#include <algorithm>

namespace
{

constexpr int restDuration = 700; // ms
constexpr int stepDuration = 16;  // ms
constexpr qreal stepSize = 0.08;  // gone after 0.2 seconds

} // namespace

ScrollBarFade::ScrollBarFade(QScrollBar *bar) : QObject(bar), m_bar(bar)
{
    bar->installEventFilter(this);
    connect(bar, &QScrollBar::valueChanged, this, &ScrollBarFade::appear);
}

qreal ScrollBarFade::opacity(const QWidget *bar)
{
    const auto *fade = bar ? bar->findChild<ScrollBarFade *>({}, Qt::FindDirectChildrenOnly) : nullptr;
    return fade ? fade->m_opacity : 1;
}

bool ScrollBarFade::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave)
        appear();
    return QObject::eventFilter(object, event);
}

void ScrollBarFade::appear()
{
    m_opacity = 1;
    m_step.stop();
    m_rest.start(restDuration, this);
    m_bar->update();
}

void ScrollBarFade::timerEvent(QTimerEvent *event)
{
    if (m_bar->underMouse() || m_bar->isSliderDown()) {
        m_opacity = 1;
        return;
    }
    if (event->timerId() == m_rest.timerId()) {
        m_rest.stop();
        m_step.start(stepDuration, this);
    }
    m_opacity = reducedMotion() ? 0 : std::max(0.0, m_opacity - stepSize);
    if (m_opacity <= 0)
        m_step.stop();
    m_bar->update();
}
