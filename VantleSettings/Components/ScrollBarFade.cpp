#include "Components/ScrollBarFade.h"

#include "Components/Painting.h"
#include "Components/StyleDrawing.h"
#include "Components/Tokens.h"
#include "Platform/Desktop/Palette.h"

#include <QEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>
#include <QTimerEvent>

#include <algorithm>

namespace
{

constexpr int restDuration = 700;
constexpr int stepDuration = 16;
constexpr qreal stepSize = 0.08; // gone within 0.2 seconds
constexpr int edge = 2;          ///< between the handle and the edge of the page

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

void StyleDrawing::drawScrollBar(QPainter &painter, const QStyleOptionSlider &option, const QRect &handle,
                                 const QWidget *bar)
{
    const qreal opacity = ScrollBarFade::opacity(bar);
    if (opacity <= 0 || option.minimum >= option.maximum)
        return;
    const bool upright = option.orientation == Qt::Vertical;
    QRect shape = handle;
    if (upright) {
        const bool mirrored = option.direction == Qt::RightToLeft;
        shape.setWidth(Tokens::scrollBarWidth);
        shape.moveLeft(mirrored ? handle.left() + edge : handle.right() + 1 - edge - Tokens::scrollBarWidth);
        shape.adjust(0, edge, 0, -edge);
    } else {
        shape.setTop(handle.bottom() + 1 - edge - Tokens::scrollBarWidth);
        shape.setHeight(Tokens::scrollBarWidth);
        shape.adjust(edge, 0, -edge, 0);
    }
    QColor color = Tokens::scrollBarHandle;
    if (option.state & (QStyle::State_Sunken | QStyle::State_MouseOver))
        color.setAlphaF(std::min(1.0F, color.alphaF() * 1.5F));
    painter.save();
    painter.setOpacity(opacity);
    fill(painter, capsule(shape), color);
    painter.restore();
}
