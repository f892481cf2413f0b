#include "Components/Text/ShortenedText.h"

#include "Foundation/Text.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace
{

// Lengths are in UTF-16 code units.
constexpr qsizetype neverTooLong = 64;         ///< a text up to this length is always shown whole
constexpr qsizetype longestUsualGrapheme = 32; ///< no letter or emoji in use is longer
constexpr qsizetype lineBreakCost = 64;        ///< a line break takes as long to lay out as this many letters
constexpr qsizetype longGraphemeHead = 16;     ///< how much is shown of a grapheme that is too long itself
constexpr QChar ellipsis(0x2026);

/// The number of letters that take as long to lay out as this grapheme. The time for marks on one letter
/// grows with the square of their number.
qsizetype cost(QStringView grapheme)
{
    if (Text::isLineBreak(grapheme.front()))
        return lineBreakCost;
    return grapheme.size() * std::max<qsizetype>(1, grapheme.size() / longestUsualGrapheme);
}

/// Whether each code unit surely takes no longer than a letter; a quick check.
bool isPlain(QStringView text)
{
    return std::none_of(text.begin(), text.end(),
                        [](QChar unit) { return unit.unicode() >= 0x300 || Text::isLineBreak(unit); });
}

/// Whether a zero-width joiner is before this position. Older versions of the toolkit report a grapheme
/// boundary there.
bool isJoined(QStringView text, qsizetype position)
{
    constexpr QChar joiner(0x200D);
    return position > 0 && position < text.size() && text[position - 1] == joiner;
}

/// The length of the whole graphemes at the beginning that together take no longer than the limit.
qsizetype headWithin(QStringView text, qsizetype limit)
{
    const QStringView seen = text.first(std::min(text.size(), limit + 1));
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, seen.data(), seen.size());
    qsizetype head = 0;
    for (qsizetype end = finder.toNextBoundary(); end > head; end = finder.toNextBoundary()) {
        if (isJoined(seen, end))
            continue;
        const bool mayContinue = end == seen.size() && seen.size() < text.size();
        limit -= cost(seen.sliced(head, end - head));
        if (mayContinue || limit < 0)
            break;
        head = end;
    }
    return head;
}

/// The same at the end.
qsizetype tailWithin(QStringView text, qsizetype limit)
{
    const QStringView seen = text.last(std::min(text.size(), limit + 1));
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, seen.data(), seen.size());
    finder.toEnd();
    qsizetype start = seen.size();
    for (qsizetype next = finder.toPreviousBoundary(); next >= 0 && next < start;
         next = finder.toPreviousBoundary()) {
        if (isJoined(seen, next))
            continue;
        const bool mayBeginEarlier = next == 0;
        limit -= cost(seen.sliced(next, start - next));
        if (mayBeginEarlier || limit < 0)
            break;
        start = next;
    }
    return seen.size() - start;
}

bool isTooLong(QStringView text, qsizetype limit)
{
    if (text.size() <= neverTooLong)
        return false;
    return text.size() > limit || (!isPlain(text) && headWithin(text, limit) != text.size());
}

} // namespace

std::optional<TextEnds> textEnds(QStringView text, qsizetype limit)
{
    if (!isTooLong(text, limit))
        return std::nullopt;
    TextEnds ends;
    ends.head = headWithin(text, limit / 2);
    if (ends.head == 0)
        ends.head = text[longGraphemeHead - 1].isHighSurrogate() ? longGraphemeHead - 1 : longGraphemeHead;
    ends.tail = tailWithin(text.sliced(ends.head), limit / 2);
    return ends;
}

QString shortened(const QString &text, qsizetype limit)
{
    const auto ends = textEnds(text, limit);
    return ends ? text.first(ends->head) + ellipsis + text.last(ends->tail) : text;
}
