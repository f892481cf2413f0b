#include "SettingsWindow/Components/FocusRing.h"

#include "Platform/Palette.h"
#include "SettingsWindow/Components/Painting.h"
#include "SettingsWindow/Components/Tokens.h"

#include <QApplication>
#include <QFocusEvent>
#include <QFocusFrame>
#include <QPainter>
#include <QVariant>

namespace
{

constexpr auto radiusProperty = "vantleCornerRadius";

qreal cornerRadius(const QWidget &control)
{
    const QVariant chosen = control.property(radiusProperty);
    return chosen.isValid() ? chosen.toReal() : Tokens::buttonRadius;
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
        const qreal radius = cornerRadius(*widget());
        const bool round = radius * 2 >= inner.height();
        const QPainterPath outside = round ? capsule(outer) : continuousRectangle(outer, radius + width);
        const QPainterPath inside = round ? capsule(inner) : continuousRectangle(inner, radius);
        QColor ring = accentColor();
        ring.setAlphaF(Tokens::focusRingOpacity);
        QPainter painter(this);
        fill(painter, outside - inside, ring);
    }
};

} // namespace

FocusRing::FocusRing(QApplication &application) : QObject(&application)
{
    application.installEventFilter(this);
}

void FocusRing::setCornerRadius(QWidget *control, qreal radius)
{
    control->setProperty(radiusProperty, radius);
}

bool FocusRing::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::FocusIn && object->isWidgetType())
        follow(static_cast<QWidget *>(object), static_cast<QFocusEvent *>(event)->reason());
    return QObject::eventFilter(object, event);
}

void FocusRing::follow(QWidget *focused, Qt::FocusReason reason)
{
    switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        m_byKeyboard = true;
        break;
    case Qt::MouseFocusReason:
        m_byKeyboard = false;
        break;
    default: // a window or a menu came or went, or the program moved the focus: as it was
        break;
    }
    const bool inPopup = focused->window()->windowType() == Qt::Popup;
    const bool shown = m_byKeyboard && !inPopup && !focused->isWindow();
    if (shown && !m_frame)
        m_frame = new Frame;
    if (m_frame)
        m_frame->setWidget(shown ? focused : nullptr);
}
