#include "Components/Text/ShortenedText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype limit = 200;

const QString family = u"👩‍👩‍👧‍👦"_s;
const QString longGrapheme = u'e' + u"\u0301"_s.repeated(1000000);

TEST(ShortenedText, ATextWithinTheLimitStaysWhole)
{
    for (const QString &text :
         {QString(), u"a"_s, u"w"_s.repeated(limit), u"é"_s.repeated(limit), u"e\u0301"_s.repeated(limit / 2),
          u"中"_s.repeated(limit), u"a\nb\nc"_s, family.repeated(10)}) {
        EXPECT_EQ(shortened(text, limit), text);
        EXPECT_FALSE(textEnds(text, limit));
    }
}

TEST(ShortenedText, ALongerTextKeepsBothEnds)
{
    EXPECT_EQ(shortened(u"/home/"_s + u"x"_s.repeated(1000000) + u"/plan"_s, limit),
              u"/home/"_s + u"x"_s.repeated(94) + u'…' + u"x"_s.repeated(95) + u"/plan"_s);
    EXPECT_EQ(shortened(u"w"_s.repeated(limit + 1), limit),
              u"w"_s.repeated(limit / 2) + u'…' + u"w"_s.repeated(limit / 2));
}

TEST(ShortenedText, GraphemesStayWholeOnBothSidesOfTheEllipsis)
{
    for (const QString &grapheme : {u"🦊"_s, family, u"e\u0301"_s, u"\u1100\u1161\u11a8"_s, u"कि"_s}) {
        for (const QString &before : {u""_s, u"a"_s, u"ab"_s, u"abc"_s}) {
            const QString text = before + grapheme.repeated(100000) + before;
            const auto ends = textEnds(text, limit);
            ASSERT_TRUE(ends);
            EXPECT_EQ((ends->head - before.size()) % grapheme.size(), 0) << grapheme.toStdString();
            EXPECT_EQ((ends->tail - before.size()) % grapheme.size(), 0) << grapheme.toStdString();
            EXPECT_GT(ends->head, limit / 3);
            EXPECT_GT(ends->tail, limit / 3);
        }
    }
}

TEST(ShortenedText, ATooLongGraphemeIsCutItself)
{
    EXPECT_EQ(shortened(longGrapheme, limit), longGrapheme.first(16) + u'…');
    EXPECT_EQ(shortened(longGrapheme + u"/plan"_s, limit), longGrapheme.first(16) + u"…/plan"_s);
    EXPECT_EQ(shortened(u"/home/"_s + longGrapheme, limit), u"/home/…"_s);
    const QString pairs = u'e' + u"\U0001d165"_s.repeated(1000000); // a mark of two UTF-16 units
    EXPECT_FALSE(shortened(pairs, limit).chopped(1).back().isHighSurrogate());
}

TEST(ShortenedText, TheCostOfMarksOnOneLetterGrowsWithTheSquareOfTheirNumber)
{
    const QString hundredMarks = u'e' + u"\u0301"_s.repeated(100);
    EXPECT_EQ(shortened(hundredMarks, 1000), hundredMarks);
    EXPECT_LT(shortened(hundredMarks.repeated(9), 1000).size(), 4 * 101);
}

TEST(ShortenedText, ALineBreakCountsAsManyLetters)
{
    EXPECT_EQ(shortened(u"\n"_s.repeated(1000000), 1000), u"\n"_s.repeated(7) + u'…' + u"\n"_s.repeated(7));
    EXPECT_EQ(shortened(u"a\r\n"_s.repeated(1000), 1000).count(u'\n'), 14);
}

} // namespace
