#include "PlanningProjects/CharacterBreaks.h"

#include <gtest/gtest.h>

using PlanningProjects::standsAlone;

namespace
{

/// U+1D165, a mark: it joins what precedes it.
constexpr QStringView beforeMark = u"#\U0001D165";
/// U+110BD, a prepended sign: it joins what follows it.
constexpr QStringView afterPrepended = u"\U000110BD#";

TEST(CharacterBreaks, AScalarOfTwoUnitsJoinsAsAWhole)
{
    EXPECT_FALSE(standsAlone(beforeMark, 0));
    EXPECT_FALSE(standsAlone(afterPrepended, 2));
}

TEST(CharacterBreaks, AViewThatCutsAPairIsNotReadBeyond)
{
    EXPECT_TRUE(standsAlone(beforeMark.first(2), 0));
    EXPECT_TRUE(standsAlone(afterPrepended.sliced(1), 1));
}

TEST(CharacterBreaks, AHalfOfAPairIsAScalarOfItsOwn)
{
    constexpr char16_t markThenLowHalf[] = {u'#', 0x0301, 0xDC00};
    EXPECT_FALSE(standsAlone(QStringView(markThenLowHalf, 3), 0));
    // Taken for a pair, these two would be U+302A, a mark.
    constexpr char16_t highHalfThenLetter[] = {u'#', 0xD800, 0x0C2A};
    EXPECT_TRUE(standsAlone(QStringView(highHalfThenLetter, 3), 0));
}

} // namespace
