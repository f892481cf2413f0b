#include "Foundation/KeyNames.h"

#include <gtest/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace
{

TEST(KeyNames, SignsInATextBecomeWords)
{
    EXPECT_EQ(withKeyNames(u"⇧⌘J"_s), u"Shift Command J");
    EXPECT_EQ(withKeyNames(u"Press ⎋ to cancel."_s), u"Press Escape to cancel.");
    EXPECT_EQ(withKeyNames(u"so ⇧⌘L opens"_s), u"so Shift Command L opens");
    EXPECT_EQ(withKeyNames(u"(⌃⌥⇧⌘↩)"_s), u"(Control Option Shift Command Return)");
}

TEST(KeyNames, EverySignHasItsWord)
{
    const std::map<QString, QString> words{
        {u"⌃"_s, u"Control"_s},     {u"⌥"_s, u"Option"_s},     {u"⇧"_s, u"Shift"_s},
        {u"⌘"_s, u"Command"_s},     {u"↩"_s, u"Return"_s},     {u"⇥"_s, u"Tab"_s},
        {u"␣"_s, u"Space"_s},       {u"⌫"_s, u"Delete"_s},     {u"⎋"_s, u"Escape"_s},
        {u"↖"_s, u"Home"_s},        {u"⇞"_s, u"Page Up"_s},    {u"⌦"_s, u"Forward Delete"_s},
        {u"↘"_s, u"End"_s},         {u"⇟"_s, u"Page Down"_s},  {u"←"_s, u"Left Arrow"_s},
        {u"→"_s, u"Right Arrow"_s}, {u"↓"_s, u"Down Arrow"_s}, {u"↑"_s, u"Up Arrow"_s}};
    for (const auto &[sign, word] : words) {
        EXPECT_EQ(withKeyNames(sign), word) << sign.toStdString();
        EXPECT_EQ(combinationInWords(u"⌘"_s, sign), u"Command "_s + word) << sign.toStdString();
    }
}

TEST(KeyNames, OtherTextsStay)
{
    for (const QString &text : {u""_s, u"Reads ~/plan · 1 session"_s, u"Choose…"_s})
        EXPECT_EQ(withKeyNames(text), text);
}

TEST(KeyNames, APunctuationMarkIsNamedWhereItIsAKey)
{
    const std::map<QString, QString> marks{
        {u"`"_s, u"grave accent"_s}, {u"-"_s, u"minus"_s},         {u"="_s, u"equals"_s},
        {u"["_s, u"left bracket"_s}, {u"]"_s, u"right bracket"_s}, {u"\\"_s, u"backslash"_s},
        {u";"_s, u"semicolon"_s},    {u"'"_s, u"apostrophe"_s},    {u","_s, u"comma"_s},
        {u"."_s, u"period"_s},       {u"/"_s, u"slash"_s},         {u"+"_s, u"plus"_s},
        {u"*"_s, u"asterisk"_s},     {u"#"_s, u"number sign"_s},   {u"<"_s, u"less than"_s},
        {u"^"_s, u"caret"_s}};
    for (const auto &[mark, name] : marks) {
        EXPECT_EQ(combinationInWords(u"⌘"_s, mark), u"Command "_s + name) << mark.toStdString();
        EXPECT_EQ(withKeyNames(mark), mark);
    }
    EXPECT_EQ(combinationInWords(u"⌃"_s, u"⟨200⟩"_s), u"Control key 200");
    EXPECT_EQ(combinationInWords(u"⌘"_s, u"⟨"_s), u"Command ⟨") << "a character of a layout, not a key code";
    EXPECT_EQ(combinationInWords(u"⌘"_s, u"⟩"_s), u"Command ⟩");
    EXPECT_EQ(combinationInWords(u""_s, u"F5"_s), u"F5");
    EXPECT_EQ(combinationInWords(u"⌥⇧"_s, u"⇟"_s), u"Option Shift Page Down");
}

} // namespace
