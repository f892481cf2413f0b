#include "Shortcuts/KeyCombo.h"

#include "Foundation/KeyNames.h"
#include "Foundation/Seam.h"
#include "Platform/Keyboard/KeyboardLayout.h"
#include "Platform/Keyboard/ModifierFlags.h"

#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{

struct SpecialKey {
    std::uint32_t keyCode;
    QStringView shown;
};

constexpr std::array specialKeys = std::to_array<SpecialKey>({
    {36, u"↩"},   {48, u"⇥"},   {49, u"␣"},    {51, u"⌫"},    {53, u"⎋"},    {115, u"↖"}, {116, u"⇞"},
    {117, u"⌦"},  {119, u"↘"},  {121, u"⇟"},   {123, u"←"},   {124, u"→"},   {125, u"↓"}, {126, u"↑"},
    {122, u"F1"}, {120, u"F2"}, {99, u"F3"},   {118, u"F4"},  {96, u"F5"},   {97, u"F6"}, {98, u"F7"},
    {100, u"F8"}, {101, u"F9"}, {109, u"F10"}, {103, u"F11"}, {111, u"F12"},
});

std::uint16_t checkedKeyCode(std::uint32_t keyCode)
{
    if (keyCode > std::numeric_limits<std::uint16_t>::max())
        qFatal("key code %u is no virtual key code", keyCode);
    return static_cast<std::uint16_t>(keyCode);
}

QString keyCodeString(std::uint32_t keyCode)
{
    for (const SpecialKey &special : specialKeys) {
        if (special.keyCode == keyCode)
            return special.shown.toString();
    }
    const auto printed = Seam<KeyboardLayout>::current().printedText(checkedKeyCode(keyCode));
    return printed ? printed->toUpper() : KeyCombo::bracketed(keyCode);
}

} // namespace

QString KeyCombo::display() const
{
    return modifierGlyphs() + keyCodeString(keyCode);
}

QString KeyCombo::spoken() const
{
    return combinationInWords(modifierGlyphs(), keyCodeString(keyCode));
}

QString KeyCombo::modifierGlyphs() const
{
    QString glyphs;
    if (modifiers & control)
        glyphs += u'⌃';
    if (modifiers & option)
        glyphs += u'⌥';
    if (modifiers & shift)
        glyphs += u'⇧';
    if (modifiers & command)
        glyphs += u'⌘';
    return glyphs;
}

QString KeyCombo::bracketed(std::uint32_t keyCode)
{
    return u"⟨%1⟩"_s.arg(keyCode);
}

std::uint32_t KeyCombo::carbonModifiers(std::uint32_t flags)
{
    std::uint32_t mask = 0;
    if (flags & ModifierFlags::command)
        mask |= command;
    if (flags & ModifierFlags::shift)
        mask |= shift;
    if (flags & ModifierFlags::option)
        mask |= option;
    if (flags & ModifierFlags::control)
        mask |= control;
    return mask;
}
