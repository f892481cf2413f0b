#include "Foundation/JsonWriter.h"

#include "Foundation/Text.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;
using Json::Array;
using Json::Object;

namespace
{

TEST(JsonWriter, WritesEachKindOfValueInTheEncodersForm)
{
    struct Case {
        Json::Node value;
        QByteArray bytes;
    };
    const std::vector<Case> cases = {
        {Array{}, "[\n\n]"},
        {Object{}, "{\n\n}"},
        {Object{{u"2"_s, u"2"_s}, {u"25"_s, u"25"_s}, {u"7"_s, u"7"_s}},
         "{\n  \"2\" : \"2\",\n  \"25\" : \"25\",\n  \"7\" : \"7\"\n}"},
        {Object{{u"a"_s, Object{}}}, "{\n  \"a\" : {\n\n  }\n}"},
        {Array{Object{}}, "[\n  {\n\n  }\n]"},
        {Object{{u"b"_s, true}, {u"a"_s, false}, {u"c"_s, nullptr}},
         "{\n  \"a\" : false,\n  \"b\" : true,\n  \"c\" : null\n}"},
        {Object{{u"a/b"_s, u"c/d"_s}}, "{\n  \"a\\/b\" : \"c\\/d\"\n}"},
        {Array{0, -1, std::int64_t{4294967295}}, "[\n  0,\n  -1,\n  4294967295\n]"},
        {Object{{u"/a"_s, Array{u"x"_s, u"y"_s}}, {u"/b"_s, Array{}}},
         "{\n  \"\\/a\" : [\n    \"x\",\n    \"y\"\n  ],\n  \"\\/b\" : [\n\n  ]\n}"},
        {TextList(), "[\n\n]"},
        {Object{{u"a"_s, TextList{u"x"_s, u"/"_s, u"\u00e9"_s}}},
         "{\n  \"a\" : [\n    \"x\",\n    \"\\/\",\n    \"\u00e9\"\n  ]\n}"},
    };
    for (const auto &[value, bytes] : cases)
        EXPECT_EQ(Json::encode(value), bytes);
}

TEST(JsonWriter, EscapesTextsAndNamesAlike)
{
    struct Case {
        QString text;
        QByteArray bytes;
    };
    const std::vector<Case> cases = {
        {u"\020\030\037"_s, "\"\\u0010\\u0018\\u001f\""},
        {u"h\007"_s, "\"h\\u0007\""},
        {u"b\\"_s, "\"b\\\\\""},
        {u"d\n"_s, "\"d\\n\""},
        {u"f\""_s, "\"f\\\"\""},
        {u"j/"_s, "\"j\\/\""},
        {u"\010"_s, "\"\\b\""},
        {u"\014\015\011"_s, "\"\\f\\r\\t\""},
        {u"\013"_s, "\"\\u000b\""},
        {QString(QChar::Null), "\"\\u0000\""},
        {u"\177"_s, "\"\177\""},
        {u"\177"_s, "\"\177\""},
        {u"\u0080"_s, "\"\302\200\""},
        {u"\u0085\u00a0\u2028"_s, "\"\302\205\u00a0\u2028\""},
        {u"e\u0301"_s, "\"e\u0301\""},
        {u"<>&"_s, "\"<>&\""},
        {u"a b"_s, "\"a b\""},
        {u""_s, "\"\""},
        {u"C:\\x"_s, "\"C:\\\\x\""},
        {u"\U0001f600"_s, "\"\U0001f600\""},
    };
    for (const auto &[text, bytes] : cases) {
        EXPECT_EQ(Json::encode(text), bytes);
        EXPECT_EQ(Json::encode(Object{{text, true}}), "{\n  " + bytes + " : true\n}");
    }
}

TEST(JsonWriter, EscapesWhereverInALongText)
{
    for (const QString &letter : {u"w"_s, u"é"_s}) {
        for (const int before : {0, 1, 200, 4094, 4095, 4096, 4097, 8190, 8191, 8192, 9000}) {
            for (const int slashes : {1, 2, 4095, 4096, 5000}) {
                const QString start = letter + u"x"_s.repeated(before);
                const QByteArray written =
                    '"' + start.toUtf8() + QByteArray("\\/").repeated(slashes) + "end\"";
                EXPECT_EQ(Json::encode(QString(start + u"/"_s.repeated(slashes) + u"end"_s)), written)
                    << before << ' ' << slashes;
            }
        }
    }
}

TEST(JsonWriter, WritesSurrogatesWhereverInALongText)
{
    for (const QString &surrogates : {u"\U0001f600"_s, QString(QChar(0xD83D)), QString(QChar(0xDE00))}) {
        for (const int before : {0, 1, 4094, 4095, 4096, 8191}) {
            for (const QString &end : {u""_s, u"end"_s, surrogates + u"end"_s}) {
                const QString text = u"x"_s.repeated(before) + surrogates + end;
                EXPECT_EQ(Json::encode(text), '"' + text.toUtf8() + '"') << before;
            }
        }
    }
}

TEST(JsonWriter, SortsMembersByTheBytesOfTheirNames)
{
    const std::vector<std::vector<QString>> orders = {
        {u"AAA"_s, u"AAAAAAB"_s},           {u"a"_s, u"aa"_s, u"aaa"_s, u"aaaa"_s},
        {u"\uff61"_s, u"\U0001f600"_s},     {u"a-b"_s, u"a.b"_s, u"a/b"_s},
        {u"key1"_s, u"key10"_s, u"key2"_s}, {u"e\u0301"_s, u"\u00e9"_s},
    };
    for (const auto &names : orders) {
        Object forwards;
        for (const QString &name : names)
            forwards.emplace_back(name, 0);
        const Object backwards(forwards.rbegin(), forwards.rend());
        QByteArray expected = "{\n";
        for (const QString &name : names)
            expected += "  " + Json::encode(name) + " : 0,\n";
        expected.chop(2);
        expected += "\n}";
        EXPECT_EQ(Json::encode(forwards), expected);
        EXPECT_EQ(Json::encode(backwards), expected);
    }
}

TEST(JsonWriter, WritesValidUtf8EvenForALoneSurrogate)
{
    const QByteArray bytes = Json::encode(QString(QChar(0xD800)) + u'x');
    EXPECT_TRUE(Text::decoded(bytes)) << bytes.toStdString();
}

} // namespace
