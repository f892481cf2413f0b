#include "Components/Style/FocusRing.h"

#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Platform/Desktop/Appearance/Palette.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFocusFrame>
#include <QKeyEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QVariant>

namespace
{

constexpr auto frameProperty = "vantleFocusFrame";

/// The widget that the ring surrounds when this control has the focus; null for no ring.
QWidget *ringTarget(QWidget *control)
{
    if (control->isWindow() || control->window()->windowType() == Qt::Popup)
        return nullptr;
    if (auto *frame = control->property(frameProperty).value<QWidget *>())
        return frame;
    // Lists mark their current entry themselves, and pages scroll without looking focused.
    const bool isText = qobject_cast<QPlainTextEdit *>(control);
    return qobject_cast<QAbstractScrollArea *>(control) && !isText ? nullptr : control;
}

/// Follows a control wherever it goes and paints the ring around it.
class Frame : public QFocusFrame
{
protected:
    void paintEvent(QPaintEvent *) override
    {
        if (!widget())
            return;
        const qreal width = Tokens::focusRingWidth;
        const QRectF outer = rect();
        const QRectF inner = outer.adjusted(width, width, -width, -width);
        constexpr qreal radius = Tokens::buttonRadius;
        const bool round = radius * 2 >= inner.height();
        const QPainterPath outside = round ? capsule(outer) : continuousRectangle(outer, radius + width);
        const QPainterPath inside = round ? capsule(inner) : continuousRectangle(inner, radius);
        QColor ring = accentColor();
        ring.setAlphaF(Tokens::focusRingOpacity);
        QPainter painter(this);
        fillShape(painter, outside - inside, ring);
    }
};

} // namespace

FocusRing::FocusRing(QApplication &application) : QObject(&application)
{
    application.installEventFilter(this);
}

void FocusRing::setFrame(QWidget *control, QWidget *frame)
{
    control->setProperty(frameProperty, QVariant::fromValue(frame));
}

bool FocusRing::eventFilter(QObject *object, QEvent *event)
{
    // A window that becomes active gives its first control the focus with the reason for Tab. So the event's
    // reason is not enough: the last Tab or mouse press decides.
    switch (event->type()) {
    case QEvent::KeyPress:
        if (const int key = static_cast<QKeyEvent *>(event)->key();
            key == Qt::Key_Tab || key == Qt::Key_Backtab)
            m_byKeyboard = true;
        break;
    case QEvent::MouseButtonPress:
        m_byKeyboard = false;
        break;
    case QEvent::FocusIn:
        if (object->isWidgetType())
            follow(static_cast<QWidget *>(object));
        break;
    default:
        break;
    }
    return QObject::eventFilter(object, event);
}

void FocusRing::follow(QWidget *focused)
{
    QWidget *target = m_byKeyboard ? ringTarget(focused) : nullptr;
    if (target && !m_frame)
        m_frame = new Frame;
    if (m_frame)
        m_frame->setWidget(target);
}
