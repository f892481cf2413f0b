#include "Foundation/Json.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

/// The document's top level, kept alive as long as the result.
struct Parsed {
    std::optional<Json::Document> document;
    Json::Value root() const { return document ? document->root() : Json::Value(); }
};

Parsed parse(const QByteArray &bytes)
{
    return {Json::Document::parse(bytes)};
}

bool isValid(const QByteArray &bytes)
{
    return Json::Document::parse(bytes).has_value();
}

QByteArray nested(int depth, const QByteArray &innermost)
{
    return QByteArray(depth, '[') + innermost + QByteArray(depth, ']');
}

TEST(Json, RefusesWhatIsNotStrictJson)
{
    const std::vector<QByteArray> invalid = {
        "[\"double extra comma\",,]",
        "{,}",
        "[\"Extra close\"]]",
        "{\"a\":1}x",
        "[\u00a01]",
        "[\n    false\n    /*\n        true\n    */\n]",
        "['single quote']",
        "{\"eof\":\"",
        "nul_",
        "010",
        ".012",
        "\"\\uD834x\\uDD1E\"",
        "[\"Illegal backslash escape: \\x15\"]",
        "{\"early escape end\": \"42\\u3\", \"foo\": \"bar\"}\n",
        "[\"line\nbreak\"]",
        "[\"apple\271\331\315\370\"]",
        "\"\300\257\"",
        "{\"x\":0x1,\"a\":true}",
        "{\"x\":\"\\u12\",\"a\":true}",
        "{\"x\":[1 2],\"a\":true}",
        " ",
        "",
        "{\"id\":0,,,,,}",
        "{\"a\": true} \"x\"",
        "{\"a\":\"b\"}#",
        "{\"a\":/*comment*/\"b\"}",
        "[True]",
        "[012]",
        "[-01]",
        "[.123]",
        "[\"\\uD800\"]",
        "[\"\\uDC00\"]",
        "[\"\\uD800\\u0041\"]",
        "[\"\\uDC00\\uD800\"]",
        "[\"\t\"]",
        "[\"\377\"]",
        "[\"\\e\"]",
        "{\"a\":01,\"b\":1}",
        "[1,]",
        "{\"a\":1,}",
        QByteArray("[]\0", 3),
    };
    for (const QByteArray &bytes : invalid)
        EXPECT_FALSE(isValid(bytes)) << bytes.toStdString();
}

TEST(Json, TakesWhiteSpaceAroundADocumentAndOneByteOrderMarkBeforeIt)
{
    for (const QByteArray bytes :
         {"[]", " [] ", "\t\r\n{}\n", "\xef\xbb\xbf[]", "\xef\xbb\xbf {}", "true", "\"x\""})
        EXPECT_TRUE(isValid(bytes)) << bytes.toStdString();
    for (const QByteArray bytes :
         {"\xef\xbb\xbf\xef\xbb\xbf[]", " \xef\xbb\xbf[]", "\xef\xbb\xbf", "\xef\xbb[]", "[]\xef\xbb\xbf"})
        EXPECT_FALSE(isValid(bytes)) << bytes.toStdString();
}

TEST(Json, RefusesUtf16AndUtf32)
{
    EXPECT_FALSE(isValid(QByteArray("[\0]\0", 4)));
    EXPECT_FALSE(isValid(QByteArray("\xff\xfe[\0]\0", 6)));
    EXPECT_FALSE(isValid(QByteArray("\xfe\xff\0[\0]", 6)));
    EXPECT_FALSE(isValid(QByteArray("[\0\0\0]\0\0\0", 8)));
}

TEST(Json, Goes512ContainersDeepAndNoDeeper)
{
    EXPECT_TRUE(isValid(nested(255, "[]")));
    EXPECT_TRUE(isValid(nested(511, "[]")));
    EXPECT_TRUE(isValid(nested(511, "{}")));
    EXPECT_TRUE(isValid(nested(512, "1")));
    EXPECT_FALSE(isValid(nested(512, "[]")));
    EXPECT_FALSE(isValid(nested(512, "{}")));
    EXPECT_FALSE(isValid(nested(513, "1")));
    EXPECT_FALSE(isValid("{\"a\":" + nested(512, "1") + "}"));
    EXPECT_TRUE(isValid("{\"a\":" + nested(511, "1") + "}"));
    EXPECT_FALSE(isValid(nested(1000000, "1")));
    EXPECT_FALSE(isValid(QByteArray(1000000, '[')));
}

TEST(Json, ReadsBytesWithoutPadding)
{
    const char bytes[] = {'[', '1', ']'};
    EXPECT_EQ(parse(QByteArray::fromRawData(bytes, sizeof bytes)).root().elementCount(), 1U);
}

TEST(Json, ReadsNothingBehindBytesWithoutPadding)
{
    const auto page = std::size_t(::sysconf(_SC_PAGESIZE));
    void *const pages = ::mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(pages, MAP_FAILED);
    char *const end = static_cast<char *>(pages) + page;
    ASSERT_EQ(::mprotect(end, page, PROT_NONE), 0);
    const QByteArray text = "[\"" + QByteArray(200, 'x') + "\"]"; // longer than the parser's blocks
    std::memcpy(end - text.size(), text.constData(), std::size_t(text.size()));
    const auto bytes = QByteArray::fromRawData(end - text.size(), text.size());
    EXPECT_EQ(parse(bytes).root().elements().at(0).text(), QString(200, u'x'));
    ::munmap(pages, 2 * page);
}

TEST(Json, OnlyTrueAndFalseAreBooleans)
{
    EXPECT_EQ(parse("{\"v\"\r\n : true}").root()["v"].boolean(), true);
    EXPECT_EQ(parse("{\"v\":false}").root()["v"].boolean(), false);
    for (const QByteArray bytes :
         {"{\"v\":1}", "{\"v\":\"true\"}", "{\"v\":null}", "{}", "null", "[true]", "{\"v\":[]}"})
        EXPECT_EQ(parse(bytes).root()["v"].boolean(), std::nullopt) << bytes.toStdString();
}

TEST(Json, AMissingMemberAndANullOneAreAbsent)
{
    EXPECT_TRUE(parse("{}").root()["a"].isAbsent());
    EXPECT_TRUE(parse("{\"a\":null}").root()["a"].isAbsent());
    EXPECT_TRUE(parse("[]").root()["a"].isAbsent());
    EXPECT_FALSE(parse("{\"a\":1}").root()["a"].isAbsent());
}

TEST(Json, TextsAreUnescapedAndKeptWhole)
{
    EXPECT_EQ(parse("\"\\u00e9\\u2265\"").root().text(), u"\u00e9\u2265"_s);
    EXPECT_EQ(parse("\"\\/test\\/path\"").root().text(), u"/test/path"_s);
    EXPECT_EQ(parse("\"a\177b\"").root().text(), u"a\u007fb"_s);
    EXPECT_EQ(parse("\"a\\u0000b\"").root().text(), QString::fromUtf16(u"a\0b", 3));
    EXPECT_EQ(parse("\"\\ufeffx\"").root().text(), u"\ufeffx"_s);
    EXPECT_EQ(parse("\"\\uD834\\uDD1E\"").root().text(), u"\U0001d11e"_s);
    EXPECT_EQ(parse("\"\"").root().text(), u""_s);
    EXPECT_EQ(parse("1").root().text(), std::nullopt);
}

TEST(Json, AnUnsignedNumberIsAnyNumberThatIsWholeAndFits)
{
    struct Case {
        QByteArray bytes;
        std::optional<std::uint32_t> result;
    };
    const std::vector<Case> cases = {
        {"38", 38},
        {"38.0", 38},
        {"3.8e1", 38},
        {"38.5", std::nullopt},
        {"-0", 0},
        {"-0.0", 0},
        {"-1", std::nullopt},
        {"4.294967295e9", 4294967295},
        {"4294967295", 4294967295},
        {"4294967296", std::nullopt},
        {"4294967295.00000000001", 4294967295},
        {"4294967295.99999999999", std::nullopt},
        {"18446744073709551615", std::nullopt},
        {"-9223372036854775808", std::nullopt},
        {"1e-400", 0},
        {"1e300", std::nullopt},
        {"0.1", std::nullopt},
        {"\"38\"", std::nullopt},
        {"true", std::nullopt},
        {"null", std::nullopt},
    };
    for (const auto &[bytes, result] : cases)
        EXPECT_EQ(parse(bytes).root().uint32(), result) << bytes.toStdString();
}

TEST(Json, ANumberBeyond64BitsAndDoublesMakesTheFileInvalid)
{
    for (const QByteArray bytes : {"{\"x\":1e400,\"a\":true}", "{\"x\":18446744073709551616,\"a\":true}",
                                   "{\"x\":-9223372036854775809,\"a\":true}", "[-1e999]"})
        EXPECT_FALSE(isValid(bytes)) << bytes.toStdString();
    EXPECT_TRUE(isValid("[18446744073709551615,-9223372036854775808,1e308,1e-400,100000000000000000000.0]"));
}

TEST(Json, OfMembersWithEqualNamesTheFirstWins)
{
    EXPECT_EQ(parse("{\"a\":true,\"a\":false}").root()["a"].boolean(), true);
    EXPECT_EQ(parse("{\"a\":1,\"a\":true}").root()["a"].boolean(), std::nullopt);
    const Parsed twice = parse("{\"a\":\"first\",\"a\":\"second\",\"b\":\"\"}");
    const auto members = twice.root().members();
    EXPECT_EQ(members.size(), 2U);
    EXPECT_EQ(members.at(u"a"_s).text(), u"first"_s);
}

TEST(Json, NamesAreEqualWhenTheyAreCanonicallyEquivalent)
{
    const Parsed parsed = parse("{\"cafe\u0301\":true,\"caf\u00e9\":false,\"cafe\":1}");
    EXPECT_EQ(parsed.root()["caf\u00e9"].boolean(), true);
    EXPECT_EQ(parsed.root().members().size(), 2U);
    EXPECT_EQ(parse("{\"\u212aey\":\"x\"}").root()["Key"].text(), u"x"_s) << "one of them in ASCII";
    EXPECT_EQ(parse("{\"Key\":\"x\"}").root()["\u212aey"].text(), u"x"_s);
    EXPECT_EQ(parse("{\"na\\u006de\":\"x\"}").root()["name"].text(), u"x"_s);
    EXPECT_TRUE(parse("{\"Name\":\"x\",\" name\":\"x\"}").root()["name"].isAbsent());
    EXPECT_TRUE(parse("{\"nam\u00e9\":\"x\"}").root()["name"].isAbsent());
}

TEST(Json, CountsAndListsElementsOfArraysOnly)
{
    const Parsed array = parse("[1,null]");
    EXPECT_EQ(array.root().elementCount(), 2U);
    ASSERT_EQ(array.root().elements().size(), 2U);
    EXPECT_EQ(array.root().elements()[1].uint32(), std::nullopt);
    for (const QByteArray bytes : {"{\"a\":[1]}", "\"x\"", "1", "null"}) {
        const Parsed other = parse(bytes);
        EXPECT_EQ(other.root().elementCount(), 0U);
        EXPECT_TRUE(other.root().elements().empty());
    }
}

TEST(Json, ListsTheTextsOfArraysOnly)
{
    EXPECT_EQ(parse("[\"a\",1,[\"b\"],\"\",\"\u00e9\"]").root().texts(), (TextList{u"a"_s, u""_s, u"é"_s}));
    EXPECT_EQ(parse("[\"é\"]").root().texts(), TextList{u"é"_s});
    for (const QByteArray bytes : {"{\"a\":\"b\"}", "[1]", "\"x\"", "[]", "null"})
        EXPECT_TRUE(parse(bytes).root().texts().isEmpty()) << bytes.toStdString();
}

TEST(Json, CountsMoreElementsThanTheParserStores)
{
    constexpr std::size_t count = (1U << 24) + 5;
    QByteArray bytes = "[";
    bytes.reserve(2 * count + 100);
    for (std::size_t i = 0; i < count; ++i)
        bytes += "1,";
    bytes.back() = ']';
    EXPECT_EQ(parse(bytes).root().elementCount(), count);
}

} // namespace
