#include "Components/Text/TextBlock.h"

#include "Components/Text/ShortenedText.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{

constexpr QChar wordJoiner(0x2060);
constexpr qsizetype longestLine = 1024; ///< more letters than the line of any window has room for
constexpr qsizetype longestText = 5000; ///< more letters than the path of a file can have
constexpr int unlimited = 1 << 24;      ///< wider than any window, but valid for the toolkit
constexpr size_t rememberedWidths = 8; ///< a layout asks for the heights at the same few widths over and over

/// The text on one line: line breaks of any kind become spaces.
QString onOneLine(QString text)
{
    for (QChar &unit : text) {
        if (unit == u'\n' || unit == u'\r' || unit == QChar::LineSeparator ||
            unit == QChar::ParagraphSeparator)
            unit = u' ';
    }
    return text;
}

QString withLineSeparators(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\n', QChar::LineSeparator);
    text.replace(u'\r', QChar::LineSeparator);
    text.replace(QChar::ParagraphSeparator, QChar::LineSeparator);
    return text;
}

/// Keeps two words with a slash between them, as in "and/or", on the same line.
QString withWholeWords(QString text)
{
    return text.replace(u'/', QString(u'/') + wordJoiner);
}

/// How many letters at most are laid out.
qsizetype limit(TextFlow flow)
{
    return flow.maximumLines == 0 ? longestText : flow.maximumLines * longestLine;
}

QString source(const QString &text, TextFlow flow)
{
    if (flow.maximumLines == 1)
        return onOneLine(text);
    return flow.balanced ? withWholeWords(withLineSeparators(text)) : withLineSeparators(text);
}

/// Breaks the text into lines of this width. Stops after `limit` + 1 lines, which shows that there are more
/// than `limit`; 0 means no limit.
void createLines(QTextLayout &layout, qreal width, int limit)
{
    layout.clearLayout();
    while (limit == 0 || layout.lineCount() <= limit) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(width);
    }
}

/// The smallest width that needs no more lines than `width` does.
qreal balancedWidth(QTextLayout &layout, qreal width)
{
    createLines(layout, width, 0);
    const int count = layout.lineCount();
    qreal low = width / (count + 1);
    qreal high = width;
    while (high - low > 1) {
        const qreal middle = (low + high) / 2;
        createLines(layout, middle, 0);
        (layout.lineCount() > count ? low : high) = middle;
    }
    return high;
}

/// A line's text without its line break, trailing spaces and word joiners.
QString shown(const QTextLine &line, const QString &text)
{
    QString shown = text.mid(line.textStart(), line.textLength());
    if (shown.endsWith(QChar::LineSeparator))
        shown.chop(1);
    while (shown.endsWith(u' '))
        shown.chop(1);
    return shown.remove(wordJoiner);
}

} // namespace

TextBlock::TextBlock(const QString &text, const QFont &font, TextFlow flow)
    : m_flow(flow),
      m_isShortened(textEnds(text, limit(flow)).has_value()),
      m_layout(source(shortened(text, limit(flow)), flow), font)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    // A path begins with its root, whatever script its folders are written in.
    option.setTextDirection(text.startsWith(u'/') ? Qt::LeftToRight : Qt::LayoutDirectionAuto);
    m_layout.setTextOption(option);
    m_layout.setCacheEnabled(true); // keeps the shaped text after endLayout(), too
    begin();
    createLines(m_layout, unlimited, 0);
    qreal widest = 0;
    for (int i = 0; i < m_layout.lineCount(); ++i)
        widest = std::max(widest, m_layout.lineAt(i).horizontalAdvance());
    m_naturalWidth = int(std::ceil(widest));
}

bool TextBlock::isElided(int width)
{
    breakAt(width);
    return m_isShortened || m_isCut;
}

int TextBlock::lineCount(int width)
{
    const auto known = m_lineCounts.find(width);
    if (known != m_lineCounts.end())
        return known->second;
    if (m_lineCounts.size() == rememberedWidths)
        m_lineCounts.clear();
    breakAt(width);
    return m_lineCounts[width] = m_wholeLines + (m_elidedLine ? 1 : 0);
}

std::vector<QString> TextBlock::lines(int width)
{
    layOut(width);
    std::vector<QString> lines;
    lines.reserve(size_t(m_wholeLines) + 1);
    for (int i = 0; i < m_wholeLines; ++i)
        lines.push_back(shown(m_layout.lineAt(i), m_layout.text()));
    if (m_elidedLine)
        lines.push_back(m_elidedLine->text());
    return lines;
}

void TextBlock::draw(QPainter &painter, const QRect &box, qreal lineAlignment, int lineHeight, int lineGap)
{
    const int count = lineCount(box.width());
    layOut(box.width());
    const int height = count * (lineHeight + lineGap) - lineGap;
    qreal baseline =
        std::round(box.top() + (box.height() - height) / 2.0 + QFontMetricsF(m_layout.font()).ascent());
    for (int i = 0; i < count; ++i) {
        const QTextLine line = i < m_wholeLines ? m_layout.lineAt(i) : m_elidedLine->lineAt(0);
        const qreal indent = lineAlignment * (box.width() - line.horizontalAdvance());
        line.draw(&painter, QPointF(box.left() + indent, baseline - line.ascent()));
        baseline += lineHeight + lineGap;
    }
}

void TextBlock::begin()
{
    if (!std::exchange(m_isBegun, true))
        m_layout.beginLayout();
}

void TextBlock::breakAt(int width)
{
    if (width == m_width)
        return;
    begin();
    const bool fits = m_naturalWidth <= width;
    const qreal room = fits ? unlimited : m_flow.balanced ? balancedWidth(m_layout, width) : width;
    createLines(m_layout, room, m_flow.maximumLines);
    m_width = width;
    m_wholeLines = m_layout.lineCount();
    m_elidedLine.reset();
    m_isCut = false;
    if (m_flow.maximumLines > 0 && m_wholeLines > m_flow.maximumLines) {
        m_wholeLines = m_flow.maximumLines - 1;
        m_elidedLine = elideLastLine(m_layout.lineAt(m_wholeLines).textStart(), width);
    }
}

/// Breaks the text at this width and ends the layout: lines can be drawn only after endLayout().
void TextBlock::layOut(int width)
{
    breakAt(width);
    if (std::exchange(m_isBegun, false))
        m_layout.endLayout();
}

std::unique_ptr<QTextLayout> TextBlock::elideLastLine(qsizetype start, int width)
{
    const QString rest = onOneLine(m_layout.text().mid(start)).remove(wordJoiner);
    const QString elided = QFontMetricsF(m_layout.font()).elidedText(rest, Qt::ElideMiddle, width);
    m_isCut = elided != rest;
    auto line = std::make_unique<QTextLayout>(elided, m_layout.font());
    line->setTextOption(m_layout.textOption());
    line->setCacheEnabled(true);
    line->beginLayout();
    line->createLine().setLineWidth(unlimited);
    line->endLayout();
    return line;
}
