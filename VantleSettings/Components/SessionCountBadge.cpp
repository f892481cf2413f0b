#include "Components/SessionCountBadge.h"

#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Desktop/Appearance/Symbol.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr int padding = 8;
constexpr int paddingVertical = 3;
constexpr int symbolSize = 10;
constexpr int symbolGap = 4;
constexpr int dashWidth = 28;
constexpr QChar dash(0x2014);

} // namespace

SessionCountBadge::SessionCountBadge(std::int64_t count, QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleRole(this, QAccessible::StaticText);
    setCount(count);
}

void SessionCountBadge::setCount(std::int64_t count)
{
    m_count = count;
    const QString tip = u"%1 notch %2 with a cwd under this project"_s.arg(count).arg(
        count == 1 ? u"session"_s : u"sessions"_s);
    setToolTip(count == 0 ? QString() : tip);
    setAccessibleName(count == 0 ? u"No notch sessions"_s : tip);
    setTextStyle(*this, count == 0 ? TextStyle::size12Medium : TextStyle::size12Semibold);
    updateGeometry();
    update();
}

QSize SessionCountBadge::sizeHint() const
{
    const QFontMetrics metrics(font());
    if (m_count == 0)
        return {std::max(dashWidth, metrics.horizontalAdvance(dash)), metrics.height()};
    const int text = metrics.horizontalAdvance(QString::number(m_count));
    return {2 * padding + symbolExtent(symbolSize) + symbolGap + text,
            metrics.height() + 2 * paddingVertical};
}

void SessionCountBadge::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_count == 0) {
        painter.setPen(textColor(TextColor::secondary70));
        painter.drawText(rect(), Qt::AlignCenter, dash);
        return;
    }
    fillShape(painter, capsule(rect()), accentColor());
    const QRect inner = rect().adjusted(padding, 0, -padding, 0);
    const QSize symbol(symbolExtent(symbolSize), symbolExtent(symbolSize));
    const Qt::LayoutDirection direction = layoutDirection();
    drawSymbol(painter, {u"bubble.left.and.bubble.right.fill"_s, symbolSize, QFont::DemiBold},
               QStyle::alignedRect(direction, Qt::AlignLeft | Qt::AlignVCenter, symbol, inner), Qt::white);
    painter.setPen(Qt::white);
    const Qt::Alignment trailing = QStyle::visualAlignment(direction, Qt::AlignRight);
    painter.drawText(inner, static_cast<int>(trailing | Qt::AlignVCenter), QString::number(m_count));
}
