#include "Foundation/Text.h"

#include <gtest/gtest.h>

#include <string>

using namespace Qt::StringLiterals;

namespace
{

TEST(Text, TellsBlanksAndLineBreaksApart)
{
    struct Case {
        char16_t scalar;
        bool blank;
        bool lineBreak;
    };
    const Case cases[] = {
        {0x0020, true, false},  {0x000A, false, true},  {0x000C, false, true},  {0x001C, false, false},
        {0x0085, false, true},  {0x1680, true, false},  {0x2000, true, false},  {0x200B, true, false},
        {0x2028, false, true},  {0x202F, true, false},  {0x2060, false, false}, {0xFEFF, false, false},
        {0x0009, true, false},  {0x00A0, true, false},  {0x205F, true, false},  {0x3000, true, false},
        {0x000B, false, true},  {0x000D, false, true},  {0x2029, false, true},  {0x0000, false, false},
        {0x180E, false, false}, {0x200C, false, false}, {0x2007, true, false},  {0x0061, false, false},
    };
    for (const auto &[scalar, blank, lineBreak] : cases) {
        EXPECT_EQ(Text::isBlank(scalar), blank) << std::hex << int(scalar);
        EXPECT_EQ(Text::isLineBreak(scalar), lineBreak) << std::hex << int(scalar);
    }
}

TEST(Text, BlanksAndLineBreaksAreExactlyTheListedOnes)
{
    const std::u16string blanks =
        u"\t\u0020\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008"
        u"\u2009\u200A\u200B\u202F\u205F\u3000";
    const std::u16string lineBreaks = u"\n\v\f\r\u0085\u2028\u2029";
    for (char32_t scalar = 0; scalar <= 0xFFFF; ++scalar) {
        const auto unit = char16_t(scalar);
        EXPECT_EQ(Text::isBlank(unit), blanks.find(unit) != std::u16string::npos) << std::hex << int(scalar);
        EXPECT_EQ(Text::isLineBreak(unit), lineBreaks.find(unit) != std::u16string::npos)
            << std::hex << int(scalar);
    }
}

TEST(Text, TrimsBlanksOnlyAndWholeScalars)
{
    EXPECT_EQ(Text::trimmed(u" abc   "), u"abc");
    EXPECT_EQ(Text::trimmed(u""), u"");
    EXPECT_EQ(Text::trimmed(u"\na\n"), u"\na\n");
    EXPECT_EQ(Text::trimmed(u"\u200ba\u200b"), u"a");
    EXPECT_EQ(Text::trimmed(u" \u0301a"), u"\u0301a");
    EXPECT_EQ(Text::trimmed(u"a b"), u"a b");
    EXPECT_EQ(Text::trimmed(u" \t\u3000"), u"");
}

TEST(Text, EqualityIsCanonicalEquivalenceAndOrderIsByCodePoint)
{
    struct Case {
        QStringView a;
        QStringView b;
        bool equal = false;
        bool before = false;
    };
    const Case cases[] = {
        {u"\u2126", u"\u03a9", true, false},
        {u"\uac00", u"\u1100\u1161", true, false},
        {u"\u00df", u"ss", false, false},
        {u"A", u"a", false, true},
        {u"f", u"\u00e9", false, true},
        {u"\u00c5", u"\u00c6", false, true},
        {u"\u1f70", u"\u1f7d", false, false},
        {u"", u"a", false, true},
        {u"10", u"9", false, true},
        {u"caf\u00e9", u"cafe\u0301", true, false},
        {u"a\u0316\u0301", u"a\u0301\u0316", true, false},
        {u"\uff61", u"\U0001f600", false, true},
        {u"\U0001f600", u"\uff61", false, false},
        {u"e\u0301", u"f", false, false},
        {u"\u212a", u"K", true, false},
        {u"a", u"a\u200d", false, true},
    };
    for (const auto &[a, b, equal, before] : cases) {
        EXPECT_EQ(Text::equal(a, b), equal) << a.toUtf8().constData() << " = " << b.toUtf8().constData();
        EXPECT_EQ(Text::equal(b, a), equal);
        EXPECT_EQ(Text::Before()(a, b), before) << a.toUtf8().constData() << " < " << b.toUtf8().constData();
        EXPECT_FALSE(equal && Text::Before()(b, a));
    }
}

TEST(Text, AMapKeepsTheFirstSpellingOfAKey)
{
    Text::Map<int> map;
    map[u"cafe\u0301"_s] = 1;
    map[u"caf\u00e9"_s] = 2;
    ASSERT_EQ(map.size(), 1U);
    EXPECT_EQ(map.begin()->first, u"cafe\u0301"_s);
    EXPECT_EQ(map.begin()->second, 2);
}

TEST(Text, LowerCaseIsEachScalarsFullMapping)
{
    EXPECT_EQ(Text::lowercased(u"\u0130"_s), u"i\u0307"_s);
    EXPECT_EQ(Text::lowercased(u"\u0430\u0431\u0412\u0413"_s), u"\u0430\u0431\u0432\u0433"_s);
    EXPECT_EQ(Text::lowercased(u"I\u0307"_s), u"i\u0307"_s);
    EXPECT_EQ(Text::lowercased(u""_s), u""_s);
    EXPECT_EQ(Text::lowercased(u"\u039f\u0394\u039f\u03a3"_s), u"\u03bf\u03b4\u03bf\u03c3"_s);
    EXPECT_EQ(Text::lowercased(u"\u1e9e"_s), u"\u00df"_s);
    EXPECT_EQ(Text::lowercased(u"\U00010400"_s), u"\U00010428"_s);
}

TEST(Text, ComposesEveryScalarAsTheToolkitDoes)
{
    for (char32_t scalar = 0; scalar < 0x30000; ++scalar) {
        const auto category = QChar::category(scalar);
        if (category == QChar::Other_Surrogate || category == QChar::Other_NotAssigned)
            continue;
        QString letter;
        letter += QChar::fromUcs4(scalar);
        for (const QString &text : {letter, u"e\u0301"_s + letter, letter + u"\u0316\u0301\u3099"_s})
            ASSERT_EQ(Text::composed(text), text.normalized(QString::NormalizationForm_C))
                << std::hex << int(scalar);
    }
}

TEST(Text, ComposesTheFirstCombiningMark)
{
    EXPECT_EQ(Text::composed(u"a\u0300"_s), u"\u00e0"_s);
    EXPECT_EQ(Text::composed(u"\u00ea\u0300"_s), u"\u1ec1"_s);
    EXPECT_TRUE(Text::equal(u"a\u0300", u"\u00e0"));
}

TEST(Text, ComposesEachLetterSeparately)
{
    EXPECT_EQ(Text::composed(u"a\u0301e\u0301e\u0300a\u0301"_s), u"\u00e1\u00e9\u00e8\u00e1"_s);
}

TEST(Text, MarksStayBeforeTheStarterThatFollowsThem)
{
    for (const QString &text : {u"\u1100\u0301\u1161"_s, u"e\u0bbe\u0301"_s, u"x\u0301\u0bbe\u0316"_s})
        EXPECT_EQ(Text::composed(text), text) << text.toStdString();
}

TEST(Text, MarksOfOneClassKeepTheirOrderAndBlockEachOther)
{
    constexpr int many = 20;
    EXPECT_EQ(Text::composed(u'q' + u"\u0302\u0308\u0316"_s.repeated(many)),
              u'q' + u"\u0316"_s.repeated(many) + u"\u0302\u0308"_s.repeated(many));
    EXPECT_EQ(Text::composed(u"a\u0305\u0301"_s), u"a\u0305\u0301"_s);
    EXPECT_EQ(Text::composed(u"a\u0316\u0301"_s), u"\u00e1\u0316"_s);
}

TEST(Text, ComposingKeepsAByteOrderMark)
{
    EXPECT_EQ(Text::composed(u"\ufeff"_s), u"\ufeff"_s);
    EXPECT_EQ(Text::composed(u"a\ufeff\ufeffe\u0301\ufffe"_s), u"a\ufeff\ufeff\u00e9\ufffe"_s);
    EXPECT_FALSE(Text::equal(u"\ufeffa", u"a"));
}

TEST(Text, ComposesLongTextsInLinearTime)
{
    // In quadratic time each of these would take minutes.
    constexpr int length = 300000;
    const QString letters = u"e\u0301"_s.repeated(length);
    EXPECT_EQ(Text::composed(letters), u"\u00e9"_s.repeated(length));
    const QString singletons = u"\u212b"_s.repeated(length);
    EXPECT_EQ(Text::composed(singletons), u"\u00c5"_s.repeated(length));
    const QString jamo = u"\u1100\u1161\u11a8"_s.repeated(length);
    EXPECT_EQ(Text::composed(jamo), u"\uac01"_s.repeated(length));
    const QString marks = u"\u0301\u0316"_s.repeated(length);
    EXPECT_EQ(Text::composed(marks), u"\u0316"_s.repeated(length) + u"\u0301"_s.repeated(length));
}

TEST(Text, ComposesOneLetterWithAMillionMarks)
{
    constexpr int length = 1000000;
    const QString acutes = u"\u0301"_s.repeated(length);
    EXPECT_EQ(Text::composed(u'e' + acutes), u'\u00e9' + acutes.chopped(1));
    // Marks that compose with each other, up to the last.
    EXPECT_EQ(Text::composed(u"\u0bc6\u0bbe"_s.repeated(length)), u"\u0bca"_s.repeated(length));
    EXPECT_EQ(Text::composed(u"\u0cc6\u0cc2\u0cd5"_s.repeated(length)), u"\u0ccb"_s.repeated(length));
}

TEST(Text, ComposesScalarsOutsideTheBasicPlane)
{
    // Two vowel signs that join after one that does not.
    EXPECT_EQ(Text::composed(u"\U000115b9\U000115bb\U000115b9\U000115af"_s),
              u"\U000115b9\U000115bb\U000115bb"_s);
    EXPECT_EQ(Text::composed(u"\U00011131\U00011127"_s), u"\U0001112e"_s);
    EXPECT_EQ(Text::composed(u"\U0001109a\u1107\u1174\u11c0"_s), u"\U0001109a\ube41"_s);
}

TEST(Text, DecodesOnlyValidUtf8AndKeepsAByteOrderMark)
{
    EXPECT_EQ(Text::decoded("caf\xc3\xa9"), u"caf\u00e9"_s);
    EXPECT_EQ(Text::decoded("\xef\xbb\xbfx"), u"\ufeffx"_s);
    EXPECT_EQ(Text::decoded(QByteArrayView("a\0b", 3)), QString::fromUtf16(u"a\0b", 3));
    EXPECT_EQ(Text::decoded(""), u""_s);
    for (const char *invalid :
         {"\xff", "\xc3", "a\xe2\x82", "\xc0\xaf", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\x80"})
        EXPECT_FALSE(Text::decoded(invalid)) << invalid;
}

} // namespace
