"""Key combinations in words, as in the description of a recorder that shows them in symbols."""

_NAMES = {
    "⌃": "Control", "⌥": "Option", "⇧": "Shift", "⌘": "Command", "↩": "Return", "⇥": "Tab", "␣": "Space",
    "⌫": "Delete", "⎋": "Escape", "↖": "Home", "⇞": "Page Up", "⌦": "Forward Delete", "↘": "End", "⇟": "Page Down",
    "←": "Left Arrow", "→": "Right Arrow", "↓": "Down Arrow", "↑": "Up Arrow",
    "`": "grave accent", "-": "minus", "=": "equals", "[": "left bracket", "]": "right bracket", "\\": "backslash",
    ";": "semicolon", "'": "apostrophe", ",": "comma", ".": "period", "/": "slash", "+": "plus", "*": "asterisk",
    "#": "number sign", "<": "less than", "^": "caret",
}


def in_words(shown):
    """Returns “Shift Command J” for ⇧⌘J; a text without symbols is returned unchanged."""
    modifiers = shown[:len(shown) - len(shown.lstrip("⌃⌥⇧⌘"))]
    key = shown[len(modifiers):]
    if key.startswith("⟨"):
        key = f"key {key[1:-1]}"
    return " ".join([*(_NAMES[symbol] for symbol in modifiers), _NAMES.get(key, key)])
