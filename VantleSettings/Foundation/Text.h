#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <map>
#include <optional>
#include <string>

/// Texts as the agent's platform compares them: canonically equivalent spellings are one text, order is by
/// code point of the composed form, and no locale or letter case is ever involved.
namespace Text
{

/// The text of these UTF-8 bytes, a byte order mark kept; nothing when they are not UTF-8.
std::optional<QString> decoded(QByteArrayView utf8);

/// The canonical composed form (NFC). The time is about proportional to the length, whatever the text
/// contains.
QString composed(const QString &text);

bool equal(QStringView a, QStringView b);

/// Strict weak ordering by code point of the composed form.
struct Before {
    using is_transparent = void;
    bool operator()(QStringView a, QStringView b) const;
};

/// The code points of the composed form. Texts are ordered as their sort keys are.
using SortKey = std::u32string;
SortKey sortKey(const QString &text);

/// A map by text: the first spelling of a key stays, the last value stored wins.
template <class Value>
using Map = std::map<QString, Value, Before>;

/// Tab, space, the other space separators, and U+200B; no line breaks.
inline bool isBlank(QChar unit)
{
    if (unit.unicode() < 0x80)
        return unit == u' ' || unit == u'\t';
    return unit == u'\u200B' || unit.category() == QChar::Separator_Space;
}

/// U+000A to U+000D, U+0085, U+2028 and U+2029.
constexpr bool isLineBreak(QChar unit)
{
    if (unit <= u'\r')
        return unit >= u'\n';
    return unit == u'\u0085' || unit == u'\u2028' || unit == u'\u2029';
}

/// Without the blanks at both ends.
QStringView trimmed(QStringView text);

/// The full lower-case mapping of each scalar.
QString lowercased(const QString &text);

} // namespace Text
