#include "Foundation/KeyNames.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace
{

struct Sign {
    QStringView sign;
    QStringView name;
};

constexpr std::array keySigns = std::to_array<Sign>({
    {u"⌃", u"Control"},
    {u"⌥", u"Option"},
    {u"⇧", u"Shift"},
    {u"⌘", u"Command"},
    {u"↩", u"Return"},
    {u"⇥", u"Tab"},
    {u"␣", u"Space"},
    {u"⌫", u"Delete"},
    {u"⎋", u"Escape"},
    {u"↖", u"Home"},
    {u"⇞", u"Page Up"},
    {u"⌦", u"Forward Delete"},
    {u"↘", u"End"},
    {u"⇟", u"Page Down"},
    {u"←", u"Left Arrow"},
    {u"→", u"Right Arrow"},
    {u"↓", u"Down Arrow"},
    {u"↑", u"Up Arrow"},
});

constexpr std::array punctuation = std::to_array<Sign>({
    {u"`", u"grave accent"},
    {u"-", u"minus"},
    {u"=", u"equals"},
    {u"[", u"left bracket"},
    {u"]", u"right bracket"},
    {u"\\", u"backslash"},
    {u";", u"semicolon"},
    {u"'", u"apostrophe"},
    {u",", u"comma"},
    {u".", u"period"},
    {u"/", u"slash"},
    {u"+", u"plus"},
    {u"*", u"asterisk"},
    {u"#", u"number sign"},
    {u"<", u"less than"},
    {u"^", u"caret"},
});

QString keyName(const QString &key)
{
    for (const Sign &mark : punctuation) {
        if (mark.sign == key)
            return mark.name.toString();
    }
    if (key.startsWith(u'⟨') && key.endsWith(u'⟩'))
        return u"key "_s + key.mid(1, key.size() - 2);
    return withKeyNames(key);
}

} // namespace

QString withKeyNames(const QString &text)
{
    QString words;
    bool afterSign = false;
    for (const QChar unit : text) {
        const auto *sign = std::find_if(keySigns.begin(), keySigns.end(),
                                        [unit](const Sign &each) { return each.sign.front() == unit; });
        const bool isSign = sign != keySigns.end();
        if (afterSign && (isSign || unit.isLetterOrNumber()))
            words += u' ';
        if (isSign)
            words += sign->name;
        else
            words += unit;
        afterSign = isSign;
    }
    return words;
}

QString combinationInWords(const QString &modifierSigns, const QString &key)
{
    const QString modifiers = withKeyNames(modifierSigns);
    return modifiers.isEmpty() ? keyName(key) : modifiers + u' ' + keyName(key);
}
