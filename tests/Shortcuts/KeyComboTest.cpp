#include "Shortcuts/KeyCombo.h"

#include "Foundation/Seam.h"
#include "Platform/Keyboard/ModifierFlags.h"
#include "Platform/Keyboard/USKeyboardLayout.h"

#include <gtest/gtest.h>

#include <csignal>
#include <map>

using namespace Qt::StringLiterals;

namespace
{

constexpr std::uint32_t commandShift = KeyCombo::command | KeyCombo::shift;
constexpr std::uint32_t allModifiers = 0x1B00;

/// A layout of a few keys.
class FewKeys : public KeyboardLayout
{
public:
    explicit FewKeys(std::map<std::uint16_t, QString> printed) : m_printed(std::move(printed)) {}

    std::optional<QString> printedText(std::uint16_t virtualKeyCode) override
    {
        const auto key = m_printed.find(virtualKeyCode);
        return key == m_printed.end() ? std::nullopt : std::optional(key->second);
    }

private:
    std::map<std::uint16_t, QString> m_printed;
};

class KeyComboDisplay : public testing::Test
{
protected:
    USKeyboardLayout m_us;
    Seam<KeyboardLayout>::Replacement m_replacement{m_us};
};

TEST_F(KeyComboDisplay, AKeyWithoutModifiersIsItsGlyphAlone)
{
    EXPECT_EQ((KeyCombo{36, 0}.display()), u"↩"_s);
}

TEST_F(KeyComboDisplay, ModifiersStandInMenuOrder)
{
    EXPECT_EQ((KeyCombo{36, allModifiers}.display()), u"⌃⌥⇧⌘↩"_s);
    EXPECT_EQ((KeyCombo{38, KeyCombo::option | KeyCombo::control}.display()), u"⌃⌥J"_s);
    EXPECT_EQ((KeyCombo{38, KeyCombo::command | KeyCombo::option}.display()), u"⌥⌘J"_s);
}

TEST_F(KeyComboDisplay, UnknownModifierBitsShowNothing)
{
    EXPECT_EQ((KeyCombo{38, 0x0400 | commandShift}.display()), u"⇧⌘J"_s);
    EXPECT_EQ((KeyCombo{38, 0xFFFF'E4FF}.display()), u"J"_s);
}

TEST_F(KeyComboDisplay, EverySpecialKeyHasItsFixedGlyph)
{
    const std::map<std::uint32_t, QString> glyphs{
        {36, u"↩"_s},    {48, u"⇥"_s},   {49, u"␣"_s},   {51, u"⌫"_s},   {53, u"⎋"_s},   {115, u"↖"_s},
        {116, u"⇞"_s},   {117, u"⌦"_s},  {119, u"↘"_s},  {121, u"⇟"_s},  {123, u"←"_s},  {124, u"→"_s},
        {125, u"↓"_s},   {126, u"↑"_s},  {122, u"F1"_s}, {120, u"F2"_s}, {99, u"F3"_s},  {118, u"F4"_s},
        {96, u"F5"_s},   {97, u"F6"_s},  {98, u"F7"_s},  {100, u"F8"_s}, {101, u"F9"_s}, {109, u"F10"_s},
        {103, u"F11"_s}, {111, u"F12"_s}};
    FewKeys printsEverythingAsX({{36, u"x"_s}, {49, u"x"_s}, {122, u"x"_s}});
    const Seam<KeyboardLayout>::Replacement replacement(printsEverythingAsX);
    for (const auto &[keyCode, glyph] : glyphs)
        EXPECT_EQ((KeyCombo{keyCode, 0}.display()), glyph) << keyCode;
}

TEST_F(KeyComboDisplay, AKeyThatPrintsNothingShowsItsCodeInBrackets)
{
    EXPECT_EQ((KeyCombo{200, 0}.display()), u"⟨200⟩"_s);
    EXPECT_EQ((KeyCombo{65535, KeyCombo::command}.display()), u"⌘⟨65535⟩"_s);
}

TEST_F(KeyComboDisplay, LettersShowInUpperCase)
{
    FewKeys layout({{19, u"é"_s}, {27, u"ß"_s}, {38, u"ы"_s}});
    const Seam<KeyboardLayout>::Replacement replacement(layout);
    EXPECT_EQ((KeyCombo{19, 0}.display()), u"É"_s);
    EXPECT_EQ((KeyCombo{27, 0}.display()), u"SS"_s);
    EXPECT_EQ((KeyCombo{38, 0}.display()), u"Ы"_s);
}

TEST_F(KeyComboDisplay, TheLayoutIsAskedEachTime)
{
    const KeyCombo combo{16, KeyCombo::command};
    EXPECT_EQ(combo.display(), u"⌘Y"_s);
    FewKeys german({{16, u"z"_s}});
    const Seam<KeyboardLayout>::Replacement replacement(german);
    EXPECT_EQ(combo.display(), u"⌘Z"_s);
}

TEST_F(KeyComboDisplay, AKeyCodeBeyond16BitsStopsTheProgram)
{
    const auto show = [](std::uint32_t keyCode) {
        qInstallMessageHandler(nullptr);
        (void)KeyCombo{keyCode, commandShift}.display();
    };
    EXPECT_EXIT(show(65536), testing::KilledBySignal(SIGABRT), "key code 65536 is no virtual key code\n");
    EXPECT_EXIT(show(4294967295), testing::KilledBySignal(SIGABRT), "key code 4294967295");
}

TEST_F(KeyComboDisplay, IsSpokenWithTheNamesOfItsKeys)
{
    EXPECT_EQ((KeyCombo{38, commandShift}.spoken()), u"Shift Command J"_s);
    EXPECT_EQ((KeyCombo{36, 0}.spoken()), u"Return"_s);
    EXPECT_EQ((KeyCombo{200, KeyCombo::control}.spoken()), u"Control key 200"_s);
}

TEST(KeyCombo, DifferentModifiersMakeDifferentCombos)
{
    EXPECT_NE((KeyCombo{38, KeyCombo::command}), (KeyCombo{38, commandShift}));
    EXPECT_NE((KeyCombo{38, KeyCombo::command}), (KeyCombo{40, KeyCombo::command}));
    EXPECT_EQ((KeyCombo{38, KeyCombo::command}), (KeyCombo{38, KeyCombo::command}));
}

TEST(CarbonModifiers, EachModifierFlagHasItsBit)
{
    EXPECT_EQ(KeyCombo::carbonModifiers(ModifierFlags::command), 0x0100U);
    EXPECT_EQ(KeyCombo::carbonModifiers(ModifierFlags::shift), 0x0200U);
    EXPECT_EQ(KeyCombo::carbonModifiers(ModifierFlags::option), 0x0800U);
    EXPECT_EQ(KeyCombo::carbonModifiers(ModifierFlags::control), 0x1000U);
    EXPECT_EQ(KeyCombo::carbonModifiers(0x1E'0000), allModifiers);
}

TEST(CarbonModifiers, OtherFlagsAreDropped)
{
    constexpr std::uint32_t others =
        ModifierFlags::capsLock | ModifierFlags::function | ModifierFlags::numericPad | ModifierFlags::help;
    EXPECT_EQ(KeyCombo::carbonModifiers(others), 0U);
    EXPECT_EQ(KeyCombo::carbonModifiers(others | ModifierFlags::command | ModifierFlags::shift), 0x0300U);
}

} // namespace
