#include "Components/Text/TouchScrolling.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QScroller>
#include <QTouchEvent>

namespace
{

QScroller::Input inputOf(QEvent::Type type)
{
    switch (type) {
    case QEvent::TouchBegin:
        return QScroller::InputPress;
    case QEvent::TouchUpdate:
        return QScroller::InputMove;
    default:
        return QScroller::InputRelease;
    }
}

void disableOvershoot(QScroller &scroller)
{
    QScrollerProperties properties = scroller.scrollerProperties();
    for (const auto policy :
         {QScrollerProperties::HorizontalOvershootPolicy, QScrollerProperties::VerticalOvershootPolicy})
        properties.setScrollMetric(policy, QVariant::fromValue(QScrollerProperties::OvershootAlwaysOff));
    scroller.setScrollerProperties(properties);
}

void giveFocus(QWidget *clicked)
{
    while (clicked && !(clicked->focusPolicy() & Qt::ClickFocus))
        clicked = clicked->isWindow() ? nullptr : clicked->parentWidget();
    if (clicked)
        clicked->setFocus(Qt::MouseFocusReason);
}

} // namespace

TouchScrolling::TouchScrolling(QAbstractScrollArea *area) : QObject(area), m_area(area)
{
    area->viewport()->setAttribute(Qt::WA_AcceptTouchEvents);
    area->viewport()->installEventFilter(this);
}

bool TouchScrolling::eventFilter(QObject *viewport, QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        return touch(static_cast<QTouchEvent &>(*event));
    default:
        return QObject::eventFilter(viewport, event);
    }
}

// QScroller's own gesture would press the control under the finger before it scrolls.
bool TouchScrolling::touch(QTouchEvent &event)
{
    const bool begins = event.type() == QEvent::TouchBegin;
    const bool fits = m_area->verticalScrollBar()->maximum() == 0;
    if (event.points().isEmpty() || (begins && fits))
        return false;
    const QEventPoint &finger = event.points().first();
    QWidget *viewport = m_area->viewport();
    QScroller *scroller = QScroller::scroller(viewport);
    if (begins) {
        disableOvershoot(*scroller);
        m_scrolled = scroller->state() == QScroller::Scrolling; // the touch stops the scrolling
    }
    scroller->handleInput(inputOf(event.type()), viewport->mapFromGlobal(finger.globalPosition()),
                          qint64(event.timestamp()));
    m_scrolled |= scroller->state() == QScroller::Dragging;
    event.accept();
    if (event.type() == QEvent::TouchEnd && !m_scrolled)
        tap(finger);
    return true;
}

void TouchScrolling::tap(const QEventPoint &finger) const
{
    const QPointF place = finger.globalPosition();
    QWidget *viewport = m_area->viewport();
    QWidget *child = viewport->childAt(viewport->mapFromGlobal(place).toPoint());
    const QPointer<QWidget> target = child ? child : viewport;
    giveFocus(target);
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        if (!target)
            return;
        const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent click(type, target->mapFromGlobal(place), target->window()->mapFromGlobal(place), place,
                          Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &click);
    }
}
