#include "SettingsWindow/Components/TextLines.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace
{

constexpr QChar wordJoiner(0x2060);

/// Everything on one line: line breaks of any kind become blanks.
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

/// A word of two parts, as in "and/or", stays in one piece where lines are balanced.
QString withWholeWords(QString text)
{
    return text.replace(u'/', QString(u'/') + wordJoiner);
}

/// Where lines of this width start, at most `limit` of them (0: all). The layout has begun and never ends, so
/// that the text is shaped once for all the widths that are tried.
std::vector<qsizetype> breaks(QTextLayout &layout, qreal width, int limit)
{
    std::vector<qsizetype> starts;
    layout.clearLayout();
    while (limit == 0 || std::ssize(starts) <= limit) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(width);
        starts.push_back(line.textStart());
    }
    return starts;
}

/// The smallest width that needs no more lines than `width` does.
qreal balancedWidth(QTextLayout &layout, qreal width)
{
    const size_t count = breaks(layout, width, 0).size();
    qreal low = width / static_cast<qreal>(count + 1);
    qreal high = width;
    while (high - low > 1) {
        const qreal middle = (low + high) / 2;
        (breaks(layout, middle, 0).size() > count ? low : high) = middle;
    }
    return high;
}

} // namespace

std::vector<QString> textLines(const QString &text, const QFont &font, qreal width, TextFlow flow)
{
    const QFontMetricsF metrics(font);
    if (flow.maximumLines == 1)
        return {metrics.elidedText(onOneLine(text), Qt::ElideMiddle, width)};

    const QString separated = withLineSeparators(text);
    const QString source = flow.balanced ? withWholeWords(separated) : separated;
    QTextLayout layout(source, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    const qreal used = flow.balanced ? balancedWidth(layout, width) : width;
    const std::vector<qsizetype> starts = breaks(layout, used, flow.maximumLines);

    std::vector<QString> lines;
    for (size_t i = 0; i < starts.size(); ++i) {
        const bool last = i + 1 == starts.size();
        if (flow.maximumLines != 0 && std::ssize(lines) + 1 == flow.maximumLines && !last) {
            lines.push_back(metrics.elidedText(onOneLine(source.mid(starts[i])), Qt::ElideMiddle, width));
            break;
        }
        QString line = source.mid(starts[i], last ? -1 : starts[i + 1] - starts[i]);
        if (line.endsWith(QChar::LineSeparator))
            line.chop(1);
        while (line.endsWith(u' '))
            line.chop(1);
        if (flow.balanced)
            line.remove(wordJoiner);
        lines.push_back(line);
    }
    return lines;
}

int widthOfLines(const std::vector<QString> &lines, const QFont &font)
{
    const QFontMetricsF metrics(font);
    qreal width = 0;
    for (const QString &line : lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    return static_cast<int>(std::ceil(width));
}
