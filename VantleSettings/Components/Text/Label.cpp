#include "Components/Text/Label.h"

#include "Components/Text/ShortenedText.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "Platform/Window/Accessibility/AccessibleText.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int minimumElidedWidth = 24;     ///< the minimum width of a label that can shrink
constexpr int lineGap = 1;                 ///< between the lines of a text
constexpr qsizetype longestToolTip = 2048; ///< in letters
constexpr int widestLineHint = 640;        ///< the greatest width in a wrapped text's size hint

} // namespace

QString plainToolTip(const QString &text)
{
    QString shown = shortened(text, longestToolTip);
    if (shown.size() < 80 && !Qt::mightBeRichText(shown))
        return shown;
    return QStringLiteral("<div style='white-space: pre-wrap'>%1</div>").arg(shown.toHtmlEscaped());
}

Label::Label(const QString &text, TextStyle style, TextColor textColor, QWidget *parent)
    : Label(text, style, textColor, TextFlow{.maximumLines = 1, .canShrink = false}, parent)
{
}

Label::Label(const QString &text, TextStyle style, TextColor textColor, TextFlow flow, QWidget *parent)
    : QLabel(parent), m_textColor(textColor), m_flow(flow)
{
    setAccessibleRole(this, QAccessible::StaticText);
    setTextStyle(*this, style);
    // A fixed height would be the one for the width of the size hint.
    QSizePolicy policy(QSizePolicy::Preferred, wraps() ? QSizePolicy::Minimum : QSizePolicy::Fixed);
    policy.setHeightForWidth(wraps());
    setSizePolicy(policy);
    setText(text);
}

void Label::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    setAccessibleName(accessibleText(text));
    forgetBlock();
}

void Label::setTextColor(TextColor textColor)
{
    m_textColor = textColor;
    update();
}

QSize Label::sizeHint() const
{
    const int natural = block().naturalWidth();
    const int width = (wraps() ? std::min(natural, widestLineHint) : natural) + marginsWidth();
    return {width, wraps() ? heightForWidth(width) : heightOf(1)};
}

QSize Label::minimumSizeHint() const
{
    const int natural = sizeHint().width();
    return {m_flow.canShrink ? std::min(natural, minimumElidedWidth) : natural, heightOf(1)};
}

int Label::heightForWidth(int width) const
{
    return heightOf(block().lineCount(width - marginsWidth()));
}

int Label::heightOf(int lines) const
{
    return lineHeight() * lines + lineGap * (lines - 1) + contentsMargins().top() +
           contentsMargins().bottom();
}

int Label::lineHeight() const
{
    return int(std::ceil(QFontMetricsF(font()).height()));
}

int Label::marginsWidth() const
{
    return contentsMargins().left() + contentsMargins().right();
}

TextBlock &Label::block() const
{
    if (!m_block)
        m_block = std::make_unique<TextBlock>(m_text, font(), m_flow);
    return *m_block;
}

void Label::forgetBlock()
{
    m_block.reset();
    updateGeometry();
    update();
}

void Label::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(textColor(m_textColor));
    const Qt::Alignment side = QStyle::visualAlignment(layoutDirection(), alignment());
    const qreal lineAlignment = side & Qt::AlignHCenter ? 0.5 : side & Qt::AlignRight ? 1 : 0;
    QRect box = rect();
    box.setLeft(contentsRect().left());
    box.setRight(contentsRect().right());
    block().draw(painter, box, lineAlignment, lineHeight(), lineGap);
}

void Label::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    update();
}

void Label::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        forgetBlock();
    QLabel::changeEvent(event);
}

WrappedLabel::WrappedLabel(const QString &text, TextStyle style, TextColor textColor, Lines lines,
                           QWidget *parent)
    : Label(text, style, textColor, TextFlow{.balanced = lines == Lines::balancedCentred}, parent)
{
    if (lines == Lines::balancedCentred)
        setAlignment(Qt::AlignHCenter | Qt::AlignTop);
}

ElidedLabel::ElidedLabel(const QString &text, TextStyle style, TextColor textColor, int maximumLines,
                         QWidget *parent)
    : Label(text, style, textColor, TextFlow{.maximumLines = maximumLines}, parent)
{
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty())
        return Label::event(event);
    if (isElided())
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), plainToolTip(text()), this);
    else
        event->ignore();
    return true;
}

bool ElidedLabel::isElided() const
{
    return block().isElided(contentsRect().width());
}
