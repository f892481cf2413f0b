#include "PlanningProjects/Manifest.h"

#include "Foundation/Text.h"
#include "StraightforwardManifest.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;
using PlanningProjects::firstUnquotedHash;
using PlanningProjects::parseKeyValue;

namespace
{

/// The values of a block by their keys.
using Block = std::map<QString, QString>;

std::vector<Block> blocksOf(const QString &text)
{
    return StraightforwardManifest::programsBlocks(text);
}

/// The block that these lines make below a header.
Block blockOf(const QString &lines)
{
    const auto blocks = blocksOf(u"[[projects]]\n"_s + lines);
    EXPECT_EQ(blocks.size(), 1U) << lines.toStdString();
    return blocks.empty() ? Block() : blocks.front();
}

void expectValue(const QString &line, const QString &value)
{
    const auto assignment = parseKeyValue(line);
    ASSERT_TRUE(assignment) << line.toStdString();
    EXPECT_EQ(assignment->second.toString(), value) << line.toStdString();
}

TEST(Manifest, TextWithoutAHeaderHasNoBlocks)
{
    for (const QString &text :
         {u""_s, u"\n \t\n# x\n  # y"_s, u"name = x"_s, u"name = x\npath = y\n"_s, u"[projects]"_s})
        EXPECT_TRUE(blocksOf(text).empty()) << text.toStdString();
}

TEST(Manifest, AHeaderWithoutAssignmentsIsAnEmptyBlock)
{
    EXPECT_EQ(blocksOf(u"[[projects]]"_s), (std::vector<Block>(1)));
    EXPECT_EQ(blocksOf(u"[[projects]]\n[[projects]]\nname = b"_s),
              (std::vector<Block>{{}, {{u"name"_s, u"b"_s}}}));
}

TEST(Manifest, AssignmentsBeforeTheFirstHeaderAreIgnored)
{
    EXPECT_EQ(blocksOf(u"name = x\n[[projects]]\npath = /p"_s), (std::vector<Block>{{{u"path"_s, u"/p"_s}}}));
}

TEST(Manifest, AnotherHeaderClosesTheBlock)
{
    for (const QString &header :
         {u"[tool]"_s, u"[projects]"_s, u"[[other]]"_s, u"[[ projects ]]"_s, u"[[projects]"_s,
          u"[[Projects]]"_s, u"[[projects]] # main"_s, u"[[projects]]x"_s, u"["_s})
        EXPECT_EQ(blocksOf(u"[[projects]]\nname = a\n"_s + header + u"\npath = /p"_s),
                  (std::vector<Block>{{{u"name"_s, u"a"_s}}}))
            << header.toStdString();
}

TEST(Manifest, BlanksAroundAHeaderDoNotMatter)
{
    EXPECT_EQ(blocksOf(u" \t\u3000[[projects]]\u200b \nname = a"_s),
              (std::vector<Block>{{{u"name"_s, u"a"_s}}}));
}

TEST(Manifest, TheLastAssignmentOfAKeyWins)
{
    EXPECT_EQ(blockOf(u"name=a\nname=b"_s), (Block{{u"name"_s, u"b"_s}}));
    EXPECT_EQ(blockOf(u"cafe\u0301=a\ncaf\u00e9=b"_s), (Block{{u"caf\u00e9"_s, u"b"_s}}));
}

TEST(Manifest, EveryLineBreakEndsALineEvenInsideQuotes)
{
    for (const QString &lineBreak :
         {u"\n"_s, u"\r"_s, u"\r\n"_s, u"\v"_s, u"\f"_s, u"\u0085"_s, u"\u2028"_s, u"\u2029"_s})
        EXPECT_EQ(blockOf(u"name = \"a"_s + lineBreak + u"path = b\""_s + lineBreak),
                  (Block{{u"name"_s, u"\"a"_s}, {u"path"_s, u"b\""_s}}));
}

TEST(Manifest, LinesThatEndInCarriageReturnAndLineFeedReadTheSame)
{
    QString text =
        u"# projects\n\n[[projects]]\nname = \"a\" # b\npath = /p\n\n[tool]\nx = 1\n[[projects]]\n"_s;
    const auto blocks = blocksOf(text);
    EXPECT_EQ(blocksOf(text.replace(u'\n', u"\r\n"_s)), blocks);
    EXPECT_EQ(blocks, (std::vector<Block>{{{u"name"_s, u"a"_s}, {u"path"_s, u"/p"_s}}, {}}));
}

TEST(Manifest, ALineWithoutEqualsIsSkipped)
{
    EXPECT_EQ(blockOf(u"name\nx y z\n]]\npath = /p"_s), (Block{{u"path"_s, u"/p"_s}}));
    EXPECT_FALSE(parseKeyValue(u""));
}

TEST(Manifest, TheFirstEqualsSplitsAndTheOthersBelongToTheValue)
{
    EXPECT_EQ(blockOf(u"key = a = b"_s), (Block{{u"key"_s, u"a = b"_s}}));
    EXPECT_EQ(blockOf(u"= x"_s), (Block{{u""_s, u"x"_s}}));
    EXPECT_EQ(blockOf(u"="_s), (Block{{u""_s, u""_s}}));
    EXPECT_EQ(blockOf(u"a.b-c = x"_s), (Block{{u"a.b-c"_s, u"x"_s}}));
}

TEST(Manifest, AQuotedKeyKeepsItsQuotes)
{
    EXPECT_EQ(blockOf(u"\"name\" = x"_s), (Block{{u"\"name\""_s, u"x"_s}}));
    EXPECT_EQ(blockOf(u"\"a=b\" = x"_s), (Block{{u"\"a"_s, u"b\" = x"_s}}));
}

TEST(Manifest, CommentsEndAValueOutsideQuotesOnly)
{
    expectValue(u"name = \"My Project\" # comment"_s, u"My Project"_s);
    expectValue(u"name = 'a#b'"_s, u"a#b"_s);
    expectValue(u"name = a # b"_s, u"a"_s);
    expectValue(u"name = a#b"_s, u"a"_s);
    expectValue(u"name = # b"_s, u""_s);
    expectValue(u"name = \"a'b#c\" # d"_s, u"a'b#c"_s);
    expectValue(u"name = \"a # b"_s, u"\"a # b"_s);
    expectValue(u"name = 'a' \"b\" # c"_s, u"'a' \"b\""_s);
}

TEST(Manifest, ABackslashEscapesNothing)
{
    expectValue(u"name = \"a\\\"b\" # c"_s, u"\"a\\\"b\" # c"_s);
    expectValue(u"name = \"a\\nb\\u0041\""_s, u"a\\nb\\u0041"_s);
    expectValue(u"name = 'C:\\'"_s, u"C:\\"_s);
}

TEST(Manifest, OnlyMatchingQuotesAroundTheWholeValueAreRemoved)
{
    expectValue(u"name = \"abc'"_s, u"\"abc'"_s);
    expectValue(u"name = \""_s, u"\""_s);
    expectValue(u"name = '"_s, u"'"_s);
    expectValue(u"name = \"\""_s, u""_s);
    expectValue(u"name = ''"_s, u""_s);
    expectValue(u"name = \"\"\"x\"\"\""_s, u"\"\"x\"\""_s);
    expectValue(u"name = \"a\" b \"c\""_s, u"a\" b \"c"_s);
    expectValue(u"name = \" a \""_s, u" a "_s);
    expectValue(u"name = a\""_s, u"a\""_s);
}

TEST(Manifest, OtherValuesAreTheirSourceText)
{
    EXPECT_EQ(
        blockOf(u"a = 1\nb = true # yes\nc = [ 1, 2 ]\nd = { x = 'y' }"_s),
        (Block{{u"a"_s, u"1"_s}, {u"b"_s, u"true"_s}, {u"c"_s, u"[ 1, 2 ]"_s}, {u"d"_s, u"{ x = 'y' }"_s}}));
}

TEST(Manifest, TheIndexOfTheFirstUnquotedHashIsFound)
{
    EXPECT_EQ(firstUnquotedHash(u"#"), 0);
    EXPECT_EQ(firstUnquotedHash(u"\U0001f600#"), 2);
    EXPECT_EQ(firstUnquotedHash(u"'#'#"), 3);
    EXPECT_EQ(firstUnquotedHash(u"\"'#\"#"), 4);
    EXPECT_EQ(firstUnquotedHash(u"'\"#"), std::nullopt);
    EXPECT_EQ(firstUnquotedHash(u""), std::nullopt);
}

TEST(Manifest, ACharacterThatAMarkFollowsIsAnotherCharacter)
{
    EXPECT_EQ(blockOf(u"#\u0301 = x"_s), (Block{{u"#\u0301"_s, u"x"_s}}));
    EXPECT_EQ(blockOf(u"a=\u0301b=c"_s), (Block{{u"a=\u0301b"_s, u"c"_s}}));
    EXPECT_FALSE(parseKeyValue(u"a =\u0338 b"));
    EXPECT_EQ(blockOf(u"[\u0301x] = y"_s), (Block{{u"[\u0301x]"_s, u"y"_s}}));
    expectValue(u"a = b #\u20dd c"_s, u"b #\u20dd c"_s);
    expectValue(u"a = 'b'\u0301 # c'"_s, u"b'\u0301 # c"_s);
    expectValue(u"a = \"b\"\u0301"_s, u"\"b\"\u0301"_s);
    expectValue(u"a = \"\u0301b\""_s, u"\"\u0301b\""_s);
    expectValue(u"a = b #\u200d"_s, u"b #\u200d"_s);
    expectValue(u"a = b #\u0903"_s, u"b #\u0903"_s);
    expectValue(u"a = b #\ufe0f\u20e3"_s, u"b #\ufe0f\u20e3"_s);
    expectValue(u"a = b #\U000e0100"_s, u"b #\U000e0100"_s);
}

TEST(Manifest, AMarkOfAnyScriptMakesAnotherCharacterWhateverStandsBeforeTheSign)
{
    for (const QString &mark : {u"\u093f"_s, u"\u09bf"_s, u"\u0bbf"_s, u"\u0e31"_s, u"\u0e33"_s, u"\u0f71"_s,
                                u"\u102d"_s, u"\u17b6"_s, u"\U00011133"_s}) {
        const QString letter = u"\u0928"_s;
        EXPECT_FALSE(parseKeyValue(letter + u'=' + mark)) << mark.toStdString();
        EXPECT_FALSE(parseKeyValue(u'=' + mark)) << mark.toStdString();
        const QString quoted = u'"' + mark + u'"';
        expectValue(u"name="_s + quoted, quoted);
        expectValue(u"a = b #"_s + mark, u"b #"_s + mark);
        expectValue(u"a = "_s + letter + u'#' + mark, letter + u'#' + mark);
        expectValue(u"a = '"_s + letter + u"'"_s + mark, u'\'' + letter + u'\'' + mark);
    }
    for (const QString &letter : {u"\u0928"_s, u"\u0e01"_s, u"\u0f40"_s, u"\u1000"_s, u"\u1780"_s}) {
        EXPECT_EQ(blockOf(letter + u'=' + letter + u'#' + letter), (Block{{letter, letter}}));
        expectValue(u"a = '"_s + letter + u'\'', letter);
    }
}

TEST(Manifest, EveryScalarJoinsASignAsUnicodeSays)
{
    constexpr char32_t firstEmptyPlane = 0x40000;
    constexpr char32_t nextAssignedPlane = 0xE0000;
    for (char32_t scalar = 1; scalar <= QChar::LastValidCodePoint; ++scalar) {
        if (scalar == firstEmptyPlane)
            scalar = nextAssignedPlane;
        if (QChar::isSurrogate(scalar))
            continue;
        QString text;
        text += QChar::fromUcs4(scalar);
        const bool joinsBefore = StraightforwardManifest::joinsWhatPrecedesIt(scalar);
        const bool joinsAfter = GraphemeBreakTable::contains(GraphemeBreakTable::joinsWhatFollowsIt, scalar);
        ASSERT_EQ(parseKeyValue(u'=' + text).has_value(), !joinsBefore)
            << "U+" << std::hex << std::uint32_t(scalar);
        ASSERT_EQ(parseKeyValue(text + u'=').has_value(), !joinsAfter)
            << "U+" << std::hex << std::uint32_t(scalar);
    }
}

TEST(Manifest, ACharacterThatAPrependedSignPrecedesIsAnotherCharacter)
{
    expectValue(u"a = \u0600# b"_s, u"\u0600# b"_s);
    expectValue(u"a = \u0600\"b\""_s, u"\u0600\"b\""_s);
    expectValue(u"a = \U000110bd# b"_s, u"\U000110bd# b"_s);
    EXPECT_FALSE(parseKeyValue(u"a \u0600= b"));
}

TEST(Manifest, OrdinaryNeighboursJoinNothing)
{
    expectValue(u"\u00e9=\u00e9\u00e9#\u4e2d"_s, u"\u00e9\u00e9"_s);
    expectValue(u"\U0001f600=\U0001f600#\U0001f600"_s, u"\U0001f600"_s);
    expectValue(u"\uac00=\"\uac00\"#\u1100"_s, u"\uac00"_s);
    expectValue(u"a=\u2028"_s, u"\u2028"_s);
}

TEST(Manifest, TrimmingRemovesABlankAndLeavesTheMarkOnIt)
{
    expectValue(u"a = \u0301x"_s, u"\u0301x"_s);
}

TEST(Manifest, AByteOrderMarkIsACharacterOfTheFirstLine)
{
    EXPECT_TRUE(blocksOf(u"\ufeff[[projects]]\nname = a"_s).empty());
}

TEST(Manifest, ANulIsACharacterLikeAnyOther)
{
    const QString nul(QChar::Null);
    EXPECT_EQ(blockOf(u"na"_s + nul + u"me = \""_s + nul + u"\""_s), (Block{{u"na"_s + nul + u"me"_s, nul}}));
}

/// Makes random manifests, each with the blocks that it must be read as.
class Generator
{
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    std::pair<QString, std::vector<Block>> manifest()
    {
        QString text = noise();
        std::vector<Block> blocks(pick(5));
        for (Block &block : blocks) {
            text += blanks() + u"[[projects]]"_s + blanks() + lineBreak() + noise();
            for (int assignments = int(pick(5)); assignments > 0; --assignments) {
                const QString key = word();
                const QString value = pick(4) == 0 ? QString() : word() + inner() + word();
                block[Text::composed(key)] = value;
                text += blanks() + key + blanks() + u'=' + blanks() + quoted(value) + comment() +
                        lineBreak() + noise();
            }
            if (pick(3) == 0)
                text += u"[other]"_s + lineBreak() + u"name = ignored"_s + lineBreak();
        }
        return {text, blocks};
    }

private:
    unsigned pick(unsigned bound) { return unsigned(m_random() % bound); }

    QString oneOf(const std::vector<QString> &texts) { return texts[pick(unsigned(texts.size()))]; }
    QString blanks() { return oneOf({u""_s, u" "_s, u"\t"_s, u"\u3000\u200b"_s}); }
    QString lineBreak() { return oneOf({u"\n"_s, u"\r\n"_s, u"\u2028"_s, u"\v"_s}); }
    QString comment() { return oneOf({u""_s, u" # \"'[[projects]]"_s, u"#"_s}); }
    QString inner() { return oneOf({u""_s, u" "_s, u"/"_s, u"\\"_s, u"="_s}); }

    QString word()
    {
        return oneOf({u"name"_s, u"path"_s, u"todo_path"_s, u"caf\u00e9"_s, u"cafe\u0301"_s, u"\U0001f600x"_s,
                      u"~"_s, u"0"_s, u"\uac00"_s, u"x=\u0301y"_s});
    }

    QString quoted(const QString &value)
    {
        return oneOf({value, u'"' + value + u'"', u'\'' + value + u'\''});
    }

    QString noise()
    {
        return oneOf(
            {u""_s, u"\n\n"_s, u"  # comment = x"_s + lineBreak(), u"no assignment"_s + lineBreak()});
    }

    std::mt19937 m_random;
};

TEST(Manifest, ReadsBackWhatAGeneratorWrote)
{
    Generator generator(20260101);
    for (int round = 0; round < 3000; ++round) {
        const auto [text, blocks] = generator.manifest();
        ASSERT_EQ(blocksOf(text), blocks) << text.toStdString();
    }
}

TEST(Manifest, RandomTextsAreReadAsByTheStraightforwardReader)
{
    const QString alphabet = u"[]projects=\"'# \t\n\r\u0085\u2028\u0301\u0600\u200d\\a\u00e9\ufeff"_s;
    std::mt19937 random(7);
    for (int round = 0; round < 20000; ++round) {
        QString text = u"[[projects]]\n"_s;
        for (auto length = unsigned(random() % 40); length > 0; --length)
            text += alphabet[qsizetype(random() % std::size_t(alphabet.size()))];
        ASSERT_EQ(blocksOf(text), StraightforwardManifest::blocks(text)) << text.toStdString();
    }
}

TEST(Manifest, HostileTextsAreReadInLinearTime)
{
    // In quadratic time each of these would take many minutes.
    constexpr int length = 400000;
    const QString header = u"[[projects]]\n"_s;
    EXPECT_EQ(blocksOf(header + u"=\u0301"_s.repeated(length)), (std::vector<Block>(1)));
    EXPECT_EQ(blocksOf(header + u"#\u0301"_s.repeated(length)), (std::vector<Block>(1)));
    EXPECT_EQ(blocksOf(header + u"\""_s.repeated(length)), (std::vector<Block>(1)));
    EXPECT_EQ(blocksOf(header + u"\u0301\u0316"_s.repeated(length) + u"=x"_s).front().size(), 1U);
    EXPECT_EQ(blocksOf(header + u"a="_s + u"'\u0301"_s.repeated(length)).front().size(), 1U);
    EXPECT_EQ(blocksOf(header + u"a=\U0001f468\u200d"_s + u"\U0001f469\u200d"_s.repeated(length) + u'#')
                  .front()
                  .size(),
              1U);
    EXPECT_EQ(blocksOf((header + u" "_s.repeated(20)).repeated(20000)).size(), 20000U);
    EXPECT_EQ(blocksOf(u"\r\n\u2028"_s.repeated(length)).size(), 0U);
    QString keys = header;
    for (int i = 0; i < 50000; ++i)
        keys += u"\u00e9\u0316\u0301%1=x\n"_s.arg(i);
    EXPECT_EQ(blocksOf(keys).front().size(), 50000U);
}

} // namespace
