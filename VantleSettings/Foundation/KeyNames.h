#pragma once

#include <QString>

/// The text with each key symbol replaced by the key's name, for speech: "Press ⎋ to cancel." becomes "Press
/// Escape to cancel.", and ⇧⌘J becomes "Shift Command J". Screen readers skip or misname these symbols.
QString withKeyNames(const QString &text);

/// The same for a key combination. A punctuation mark as its key is replaced by a name, too: ⌘ and "," become
/// "Command comma".
QString combinationInWords(const QString &modifierSymbols, const QString &key);
