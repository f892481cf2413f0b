#include "Foundation/TextList.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace
{

/// The lines of this text that are not empty.
TextList linesOf(const QString &text)
{
    auto lines = TextList::forPartsOf(text);
    for (const QStringView line : lines.whole().tokenize(u'\n', Qt::SkipEmptyParts))
        lines.addPart(line);
    return lines;
}

TEST(TextList, HasItsTextsInOrderAndJoinsThem)
{
    struct Case {
        TextList list;
        std::vector<QString> texts;
    };
    const std::vector<Case> cases = {
        {{}, {}},
        {{u""_s}, {u""_s}},
        {{u""_s, u""_s}, {u""_s, u""_s}},
        {{u"a"_s, u""_s, u"b\nc"_s, u"\u00e9\U0001f600"_s},
         {u"a"_s, u""_s, u"b\nc"_s, u"\u00e9\U0001f600"_s}},
        {linesOf(u""_s), {}},
        {linesOf(u"\n\n"_s), {}},
        {linesOf(u"a"_s), {u"a"_s}},
        {linesOf(u"a\nb\nc"_s), {u"a"_s, u"b"_s, u"c"_s}},
        {linesOf(u"a\nb\n"_s), {u"a"_s, u"b"_s}},
        {linesOf(u"\na\n\nb"_s), {u"a"_s, u"b"_s}},
    };
    for (const auto &[list, texts] : cases) {
        const QString joined = QStringList(texts.begin(), texts.end()).join(u'\n');
        EXPECT_EQ(list.joined(), joined) << joined.toStdString();
        EXPECT_EQ(list.isEmpty(), texts.empty()) << joined.toStdString();
        ASSERT_EQ(list.size(), qsizetype(texts.size())) << joined.toStdString();
        for (qsizetype i = 0; i < list.size(); ++i)
            EXPECT_EQ(list[i], texts[std::size_t(i)]) << joined.toStdString();
    }
}

TEST(TextList, EqualsAListOfTheSameTexts)
{
    EXPECT_EQ(linesOf(u"\na\n\nb\n"_s), (TextList{u"a"_s, u"b"_s}));
    EXPECT_EQ(linesOf(u"\n"_s), TextList());
    EXPECT_NE((TextList{u"a"_s, u"b"_s}), (TextList{u"a\nb"_s}));
    EXPECT_NE((TextList{u"a"_s, u"b"_s}), (TextList{u"a"_s, u"c"_s}));
    EXPECT_NE((TextList{u"a"_s, u"b"_s}), (TextList{u"a"_s}));
    EXPECT_NE(TextList{u""_s}, TextList());
}

TEST(TextList, ACopyIsAListOfItsOwn)
{
    TextList list{u"a"_s};
    const TextList copy = list;
    list.append(u"b"_s);
    list.append("c"_L1);
    EXPECT_EQ(list, (TextList{u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_EQ(copy, TextList{u"a"_s});
}

TEST(TextList, SharesTheMemoryOfAWholeText)
{
    const QString text = u"a\nb"_s.repeated(100);
    EXPECT_EQ(linesOf(text).joined().constData(), text.constData());
    const QString one = u"a"_s.repeated(100);
    EXPECT_EQ(TextList{one}.joined().constData(), one.constData());
}

TEST(TextList, RoomForMoreChangesNothing)
{
    TextList list;
    list.reserve(2, 100);
    EXPECT_TRUE(list.isEmpty());
    list.append(u"a"_s);
    list.append(u""_s);
    EXPECT_EQ(list, (TextList{u"a"_s, u""_s}));
    EXPECT_EQ(list.joined(), u"a\n"_s);
}

} // namespace
