#include "PlanningProjects/CharacterBreaks.h"

#include <QChar>

#include <algorithm>
#include <array>

// Rules GB9, GB9a and GB9b of UAX #29, the only ones that join anything to a printable ASCII character.
// QTextBoundaryFinder is not used because it tailors its results to scripts.

namespace
{

struct Range {
    char32_t first;
    char32_t last;
};

/// Spacing marks that do not extend the preceding cluster.
constexpr std::array<Range, 13> nonextendingMarks{{{0x102B, 0x102C},
                                                   {0x1038, 0x1038},
                                                   {0x1062, 0x1064},
                                                   {0x1067, 0x106D},
                                                   {0x1083, 0x1083},
                                                   {0x1087, 0x108C},
                                                   {0x108F, 0x108F},
                                                   {0x109A, 0x109C},
                                                   {0x1A61, 0x1A61},
                                                   {0x1A63, 0x1A64},
                                                   {0xAA7B, 0xAA7B},
                                                   {0xAA7D, 0xAA7D},
                                                   {0x11720, 0x11721}}};

/// Scalars that extend the preceding cluster without being marks: Thai and Lao vowels, joiners, half-width
/// voicing marks, emoji modifiers, tags.
constexpr std::array<Range, 6> extendingNonMarks{{{0x0E33, 0x0E33},
                                                  {0x0EB3, 0x0EB3},
                                                  {0x200C, 0x200D},
                                                  {0xFF9E, 0xFF9F},
                                                  {0x1F3FB, 0x1F3FF},
                                                  {0xE0020, 0xE007F}}};

/// Scalars that join the following cluster (property Prepend): signs that span numbers, and letters that are
/// written before their syllable.
constexpr std::array<Range, 15> prepended{{{0x0600, 0x0605},
                                           {0x06DD, 0x06DD},
                                           {0x070F, 0x070F},
                                           {0x0890, 0x0891},
                                           {0x08E2, 0x08E2},
                                           {0x0D4E, 0x0D4E},
                                           {0x110BD, 0x110BD},
                                           {0x110CD, 0x110CD},
                                           {0x111C2, 0x111C3},
                                           {0x1193F, 0x1193F},
                                           {0x11941, 0x11941},
                                           {0x11A3A, 0x11A3A},
                                           {0x11A84, 0x11A89},
                                           {0x11D46, 0x11D46},
                                           {0x11F02, 0x11F02}}};

template <std::size_t Size>
bool contains(const std::array<Range, Size> &ranges, char32_t scalar)
{
    return std::any_of(ranges.begin(), ranges.end(), [scalar](const Range &range) {
        return scalar >= range.first && scalar <= range.last;
    });
}

/// The first scalar that joins another.
constexpr char32_t firstMark = 0x0300;

bool joinsWhatPrecedesIt(char32_t scalar)
{
    if (scalar < firstMark)
        return false;
    return QChar::isMark(scalar) ? !contains(nonextendingMarks, scalar) : contains(extendingNonMarks, scalar);
}

bool joinsWhatFollowsIt(char32_t scalar)
{
    return scalar >= firstMark && contains(prepended, scalar);
}

char32_t scalarFrom(QStringView text, qsizetype index)
{
    const QChar unit = text[index];
    const bool isPair = unit.isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate();
    return isPair ? QChar::surrogateToUcs4(unit, text[index + 1]) : unit.unicode();
}

char32_t scalarBefore(QStringView text, qsizetype index)
{
    const bool isPair = index >= 2 && text[index - 1].isLowSurrogate() && text[index - 2].isHighSurrogate();
    return scalarFrom(text, index - (isPair ? 2 : 1));
}

} // namespace

bool PlanningProjects::standsAlone(QStringView text, qsizetype index)
{
    const bool isFollowed = index + 1 < text.size() && joinsWhatPrecedesIt(scalarFrom(text, index + 1));
    const bool isPreceded = index > 0 && joinsWhatFollowsIt(scalarBefore(text, index));
    return !isFollowed && !isPreceded;
}
