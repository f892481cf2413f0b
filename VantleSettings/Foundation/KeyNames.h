#pragma once

#include <QString>

/// The text with words for the signs of keys, as it is spoken: "Press ⎋ to cancel." is "Press Escape to
/// cancel.", and ⇧⌘J is "Shift Command J". Screen readers have no or strange words for these signs.
QString withKeyNames(const QString &text);

/// The same for a combination, whose key has a name also where it is a punctuation mark: ⌘ and "," are
/// "Command comma".
QString combinationInWords(const QString &modifierSigns, const QString &key);
