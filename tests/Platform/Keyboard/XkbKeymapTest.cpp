#include "Platform/Keyboard/detail/XkbKeymap.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

// The keys by their place on a US keyboard.
constexpr std::uint16_t keyQ = 12;
constexpr std::uint16_t keyY = 16;
constexpr std::uint16_t keyJ = 38;
constexpr std::uint16_t key1 = 18;
constexpr std::uint16_t keyMinus = 27;
constexpr std::uint16_t keyEquals = 24;
constexpr std::uint16_t keyLeftOf1 = 50;
constexpr std::uint16_t keyRightOfShift = 10;
constexpr std::uint16_t keypad7 = 89;
constexpr std::uint16_t keypadPoint = 65;
constexpr std::uint16_t keypadEnter = 76;

XkbKeymap keymap(const char *layout, const char *variant = "")
{
    auto made = XkbKeymap::fromNames(layout, variant);
    if (!made)
        throw std::runtime_error(std::string("no keymap of ") + layout);
    return std::move(*made);
}

/// The texts that the keys print; a question mark for a key that prints nothing.
QString printed(const XkbKeymap &keymap, std::initializer_list<std::uint16_t> keys,
                xkb_layout_index_t group = 0)
{
    QString text;
    for (const std::uint16_t key : keys)
        text += keymap.printedText(key, group).value_or(u"?"_s);
    return text;
}

TEST(XkbKeymap, PrintsWhatTheLayoutPrints)
{
    EXPECT_EQ(printed(keymap("us"), {keyQ, keyY, keyJ, key1, keyMinus, keyEquals}), u"qyj1-="_s);
    EXPECT_EQ(printed(keymap("de"), {keyQ, keyY, keyJ, key1, keyMinus, keyRightOfShift}), u"qzj1ß<"_s);
    EXPECT_EQ(printed(keymap("fr"), {keyQ, keyY, keyJ, key1, keyMinus, keyEquals}), u"ayj&)="_s);
    EXPECT_EQ(printed(keymap("us", "dvorak"), {keyQ, keyY, keyJ, key1, keyMinus, keyEquals}), u"'fh1[]"_s);
}

TEST(XkbKeymap, ADeadKeyPrintsNothing)
{
    EXPECT_EQ(printed(keymap("de"), {keyLeftOf1, keyEquals}), u"??"_s);
    EXPECT_EQ(printed(keymap("us", "intl"), {keyLeftOf1, keyEquals}), u"?="_s);
}

TEST(XkbKeymap, KeysWithoutTextPrintNothing)
{
    for (const std::uint16_t key : {36, 48, 51, 53, 117, 122, 123, 76, 72, 200, 65535})
        EXPECT_EQ(keymap("us").printedText(key, 0), std::nullopt) << key;
}

TEST(XkbKeymap, TheKeypadPrintsItsDigitsWithoutNumLock)
{
    EXPECT_EQ(printed(keymap("us"), {keypad7, keypadPoint, keypadEnter}), u"7.?"_s);
    EXPECT_EQ(printed(keymap("de"), {keypad7, keypadPoint, keypadEnter}), u"7,?"_s);
}

TEST(XkbKeymap, TheLayoutInForceDecides)
{
    const XkbKeymap both = keymap("us,de");
    EXPECT_EQ(printed(both, {keyY}, 0), u"y"_s);
    EXPECT_EQ(printed(both, {keyY}, 1), u"z"_s);
}

TEST(XkbKeymap, ALayoutThatIsNotLatinIsReplacedByTheFirstThatIs)
{
    const XkbKeymap russianFirst = keymap("ru,de,us");
    EXPECT_EQ(printed(russianFirst, {keyY, keyQ}, 0), u"zq"_s);
    EXPECT_EQ(printed(russianFirst, {keyY, keyQ}, 1), u"zq"_s);
    EXPECT_EQ(printed(russianFirst, {keyY, keyQ}, 2), u"yq"_s);
}

TEST(XkbKeymap, WithoutALatinLayoutTheUSLayoutIsUsed)
{
    for (const char *layout : {"ru", "gr", "il", "ara", "th", "ru,gr"})
        EXPECT_EQ(printed(keymap(layout), {keyQ, keyY, key1, keyMinus, keypad7}), u"qy1-7"_s) << layout;
}

TEST(XkbKeymap, LayoutsOfLatinLanguagesAreLatin)
{
    // Each layout differs from the US one on at least one of these keys.
    for (const char *layout : {"tr", "cz", "pl(qwertz)", "lt", "vn", "rs(latin)", "tm", "is"})
        EXPECT_NE(printed(keymap(layout), {keyY, key1, keyMinus, keyEquals, 33, 41, 12, 6}), u"y1-=[;qz"_s)
            << layout;
}

TEST(XkbKeymap, AGroupBeyondTheLastWrapsAround)
{
    EXPECT_EQ(printed(keymap("us"), {keyQ}, 3), u"q"_s);
}

TEST(XkbKeymap, AnEmptyNameIsTheDefaultOfTheLibrary)
{
    qunsetenv("XKB_DEFAULT_LAYOUT");
    EXPECT_EQ(printed(keymap(""), {keyY}), u"y"_s);
    qputenv("XKB_DEFAULT_LAYOUT", "de");
    EXPECT_EQ(printed(keymap(""), {keyY}), u"z"_s);
    qunsetenv("XKB_DEFAULT_LAYOUT");
}

TEST(XkbKeymap, InvalidKeymapsAreRefused)
{
    EXPECT_FALSE(XkbKeymap::fromNames("no-such-layout", {}));
    EXPECT_FALSE(XkbKeymap::fromText("no keymap"));
    EXPECT_FALSE(XkbKeymap::fromText({}));
}

} // namespace
