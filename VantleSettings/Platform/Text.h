#pragma once

#include <QString>

#include <map>

/// Texts as the agent's platform compares them: canonically equivalent spellings are one text, order is by
/// code point of the composed form, and no locale or letter case is ever involved.
namespace Text
{

bool equal(const QString &a, const QString &b);

/// Strict weak ordering by code point of the composed (NFC) form.
struct Before {
    bool operator()(const QString &a, const QString &b) const;
};

/// A map by text: the first spelling of a key stays, the last value stored wins.
template <class Value>
using Map = std::map<QString, Value, Before>;

} // namespace Text
