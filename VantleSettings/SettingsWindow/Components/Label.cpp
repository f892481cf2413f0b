#include "SettingsWindow/Components/Label.h"

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

constexpr int narrowest = 24;          ///< what a label that can give way asks for at least
constexpr int lineGap = 1;             ///< between the lines of a text
constexpr int widestLineHint = 640;    ///< a wrapped text never asks for more
constexpr size_t rememberedWidths = 8; ///< a layout asks for the heights at the same few widths over and over

} // namespace

QString plainToolTip(const QString &text)
{
    if (text.size() < 80 && !Qt::mightBeRichText(text))
        return text;
    return QStringLiteral("<div style='white-space: pre-wrap'>%1</div>").arg(text.toHtmlEscaped());
}

Label::Label(const QString &text, TextStyle style, TextColor textColor, QWidget *parent)
    : Label(text, style, textColor, TextFlow{.maximumLines = 1, .givesWay = false}, parent)
{
}

Label::Label(const QString &text, TextStyle style, TextColor textColor, TextFlow flow, QWidget *parent)
    : QLabel(parent), m_textColor(textColor), m_flow(flow)
{
    setFont(textFont(style));
    // A fixed height would be that of the hint's width.
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
    setAccessibleName(text);
    forgetLines();
}

void Label::setTextColor(TextColor textColor)
{
    m_textColor = textColor;
    update();
}

QSize Label::sizeHint() const
{
    const int natural = wraps() ? std::min(naturalWidth(), widestLineHint) : naturalWidth();
    const int width = natural + marginsWidth();
    return {width, wraps() ? heightForWidth(width) : heightOf(1)};
}

QSize Label::minimumSizeHint() const
{
    const int natural = sizeHint().width();
    return {m_flow.givesWay ? std::min(natural, narrowest) : natural, heightOf(1)};
}

int Label::heightForWidth(int width) const
{
    return heightOf(linesFor(width).size());
}

int Label::heightOf(size_t lines) const
{
    const int count = std::max(1, int(lines));
    return lineHeight() * count + lineGap * (count - 1);
}

int Label::lineHeight() const
{
    return int(std::ceil(QFontMetricsF(font()).height()));
}

int Label::marginsWidth() const
{
    return contentsMargins().left() + contentsMargins().right();
}

/// Without a line break of any kind, nor a blank at the end, which a line would lose.
bool Label::isOneParagraph() const
{
    return !m_text.isEmpty() && m_text.back() != u' ' &&
           std::none_of(m_text.begin(), m_text.end(), [](QChar unit) {
               return unit == u'\n' || unit == u'\r' || unit == QChar::LineSeparator ||
                      unit == QChar::ParagraphSeparator;
           });
}

/// What the text takes where nothing limits it, in points, rounded up.
int Label::naturalWidth() const
{
    if (m_naturalWidth < 0)
        m_naturalWidth = widthOfLines(isOneParagraph() ? std::vector<QString>{m_text}
                                                       : textLines(m_text, font(), QWIDGETSIZE_MAX, {}),
                                      font());
    return m_naturalWidth;
}

const std::vector<QString> &Label::linesFor(int width) const
{
    const auto known = m_lines.find(width);
    if (known != m_lines.end())
        return known->second;
    if (m_lines.size() == rememberedWidths)
        m_lines.clear();
    std::vector<QString> &lines = m_lines[width];
    const int room = width - marginsWidth();
    // Most texts fit on one line, and measuring them again would be most of the work of a page's first
    // layout.
    if (isOneParagraph() && naturalWidth() <= room)
        lines = {m_text};
    else
        lines = textLines(m_text, font(), room, m_flow);
    return lines;
}

void Label::forgetLines()
{
    m_lines.clear();
    m_naturalWidth = -1;
    updateGeometry();
    update();
}

void Label::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(textColor(m_textColor));
    // A path begins with its root, whatever script its folders are written in.
    painter.setLayoutDirection(m_text.startsWith(u'/') ? Qt::LeftToRight : Qt::LayoutDirectionAuto);
    const QFontMetricsF metrics(font());
    const std::vector<QString> &lines = linesFor(width());
    const QRect inner = contentsRect();
    const Qt::Alignment side = QStyle::visualAlignment(layoutDirection(), alignment());
    qreal baseline = std::round((height() - heightOf(lines.size())) / 2.0 + metrics.ascent());
    for (const QString &line : lines) {
        const qreal share = side & Qt::AlignHCenter ? 0.5 : side & Qt::AlignRight ? 1 : 0;
        const qreal indent = share > 0 ? share * (inner.width() - metrics.horizontalAdvance(line)) : 0;
        painter.drawText(QPointF(inner.left() + indent, baseline), line);
        baseline += lineHeight() + lineGap;
    }
}

void Label::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    update();
}

void Label::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        forgetLines();
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
    qsizetype ellipses = 0;
    for (const QString &line : shownLines())
        ellipses += line.count(QChar(0x2026));
    return ellipses > text().count(QChar(0x2026));
}
