#include "Components/Text/ShortenedText.h"

#include "Foundation/Text.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace
{

constexpr qsizetype neverTooLong = 64;   ///< a text of so many units is always shown whole
constexpr qsizetype plainGrapheme = 32;  ///< in units; longer ones are no letter or emoji that anybody uses
constexpr qsizetype lineBreakCost = 64;  ///< a line of its own takes as long as this many letters
constexpr qsizetype beginningOfOne = 16; ///< what is shown of a grapheme that is too long itself, in units
constexpr QChar ellipsis(0x2026);

/// How many letters take as long to lay out as this grapheme: marks on one letter take the square of their
/// number.
qsizetype cost(QStringView grapheme)
{
    if (Text::isLineBreak(grapheme.front()))
        return lineBreakCost;
    return grapheme.size() * std::max<qsizetype>(1, grapheme.size() / plainGrapheme);
}

/// Whether each unit takes as long as a letter, seen at a glance.
bool isPlain(QStringView text)
{
    return std::none_of(text.begin(), text.end(),
                        [](QChar unit) { return unit.unicode() >= 0x300 || Text::isLineBreak(unit); });
}

/// Older versions of the toolkit see a boundary behind what joins two emoji into one.
bool isJoined(QStringView text, qsizetype position)
{
    constexpr QChar joiner(0x200D);
    return position > 0 && position < text.size() && text[position - 1] == joiner;
}

/// How many units of whole graphemes at the beginning take no longer than the limit.
qsizetype headWithin(QStringView text, qsizetype limit)
{
    const QStringView seen = text.first(std::min(text.size(), limit + 1));
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, seen.data(), seen.size());
    qsizetype head = 0;
    for (qsizetype end = finder.toNextBoundary(); end > head; end = finder.toNextBoundary()) {
        if (isJoined(seen, end))
            continue;
        const bool mayGoOn = end == seen.size() && seen.size() < text.size();
        limit -= cost(seen.sliced(head, end - head));
        if (mayGoOn || limit < 0)
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
        ends.head = text[beginningOfOne - 1].isHighSurrogate() ? beginningOfOne - 1 : beginningOfOne;
    ends.tail = tailWithin(text.sliced(ends.head), limit / 2);
    return ends;
}

QString shortened(const QString &text, qsizetype limit)
{
    const auto ends = textEnds(text, limit);
    return ends ? text.first(ends->head) + ellipsis + text.last(ends->tail) : text;
}
