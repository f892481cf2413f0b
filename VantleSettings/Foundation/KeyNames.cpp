#include "Foundation/KeyNames.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace
{

struct NamedSymbol {
    QChar symbol;
    QStringView name;
};

constexpr std::array keySymbols = std::to_array<NamedSymbol>({
    {u'⌃', u"Control"},
    {u'⌥', u"Option"},
    {u'⇧', u"Shift"},
    {u'⌘', u"Command"},
    {u'↩', u"Return"},
    {u'⇥', u"Tab"},
    {u'␣', u"Space"},
    {u'⌫', u"Delete"},
    {u'⎋', u"Escape"},
    {u'↖', u"Home"},
    {u'⇞', u"Page Up"},
    {u'⌦', u"Forward Delete"},
    {u'↘', u"End"},
    {u'⇟', u"Page Down"},
    {u'←', u"Left Arrow"},
    {u'→', u"Right Arrow"},
    {u'↓', u"Down Arrow"},
    {u'↑', u"Up Arrow"},
});

constexpr std::array punctuation = std::to_array<NamedSymbol>({
    {u'`', u"grave accent"},
    {u'-', u"minus"},
    {u'=', u"equals"},
    {u'[', u"left bracket"},
    {u']', u"right bracket"},
    {u'\\', u"backslash"},
    {u';', u"semicolon"},
    {u'\'', u"apostrophe"},
    {u',', u"comma"},
    {u'.', u"period"},
    {u'/', u"slash"},
    {u'+', u"plus"},
    {u'*', u"asterisk"},
    {u'#', u"number sign"},
    {u'<', u"less than"},
    {u'^', u"caret"},
});

QString keyName(const QString &key)
{
    for (const NamedSymbol &mark : punctuation) {
        if (key == mark.symbol)
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
    bool afterSymbol = false;
    for (const QChar unit : text) {
        const auto *symbol = std::find_if(keySymbols.begin(), keySymbols.end(),
                                          [unit](const NamedSymbol &each) { return each.symbol == unit; });
        const bool isSymbol = symbol != keySymbols.end();
        if (afterSymbol && (isSymbol || unit.isLetterOrNumber()))
            words += u' ';
        if (isSymbol)
            words += symbol->name;
        else
            words += unit;
        afterSymbol = isSymbol;
    }
    return words;
}

QString combinationInWords(const QString &modifierSymbols, const QString &key)
{
    const QString modifiers = withKeyNames(modifierSymbols);
    return modifiers.isEmpty() ? keyName(key) : modifiers + u' ' + keyName(key);
}
