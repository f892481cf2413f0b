#include "Foundation/KeyNames.h"

#include <gtest/gtest.h>

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

TEST(KeyNames, OtherTextsStay)
{
    for (const QString &text : {u""_s, u"Reads ~/plan · 1 session"_s, u"Choose…"_s})
        EXPECT_EQ(withKeyNames(text), text);
}

TEST(KeyNames, APunctuationMarkIsNamedWhereItIsAKey)
{
    EXPECT_EQ(combinationInWords(u"⌘"_s, u","_s), u"Command comma");
    EXPECT_EQ(combinationInWords(u"⌃"_s, u"⟨200⟩"_s), u"Control key 200");
    EXPECT_EQ(combinationInWords(u""_s, u"F5"_s), u"F5");
    EXPECT_EQ(combinationInWords(u"⌥⇧"_s, u"⇟"_s), u"Option Shift Page Down");
}

} // namespace
