"""Real key strokes and mouse movements, through the X server's test extension."""

import contextlib

from Xlib import XK, X, display
from Xlib.ext import xtest

_MODIFIERS = {"ctrl": "Control_L", "shift": "Shift_L", "alt": "Alt_L", "super": "Super_L"}

# The kernel's codes of the same keys and of AltGr, which no layout changes.
_MODIFIER_CODES = {"ctrl": 29, "shift": 42, "alt": 56, "super": 125, "altgr": 100}
_X_OFFSET = 8  # the X server's code of a key minus the kernel's


class Input:
    """A keyboard and a mouse at the screen of DISPLAY. Coordinates are pixels."""

    def __init__(self):
        self._display = display.Display()

    def press(self, *strokes):
        """Presses keys. Each stroke is a key's name with its modifiers before it: "Tab", "ctrl+w", "ctrl+shift+z".
        While a screen reader runs, the toolkit delivers plain keys later than shortcuts: wait until typed text has
        arrived before pressing a shortcut."""
        for stroke in strokes:
            *modifiers, key = stroke.split("+") if stroke != "+" else ["plus"]
            held = [self._x_code(_MODIFIERS[name])[0] for name in modifiers]
            code, shifted = self._x_code(key)
            if shifted:
                held.append(self._x_code("Shift_L")[0])
            self._chord(held, code)

    def press_code(self, code, *modifiers):
        """Presses and releases a key by the kernel's code, with modifiers held, whatever the layout."""
        self._chord([_MODIFIER_CODES[name] + _X_OFFSET for name in modifiers], code + _X_OFFSET)

    @contextlib.contextmanager
    def holding(self, code, *modifiers):
        """Holds a key down during the block. The X server repeats it."""
        held = [each + _X_OFFSET for each in (*(_MODIFIER_CODES[name] for name in modifiers), code)]
        for x_code in held:
            xtest.fake_input(self._display, X.KeyPress, x_code)
        self._display.sync()
        try:
            yield
        finally:
            for x_code in reversed(held):
                xtest.fake_input(self._display, X.KeyRelease, x_code)
            self._display.sync()

    def type(self, text):
        """Types a text, all of whose characters the keyboard's layout has."""
        for character in text:
            self.press({"\n": "Return", "\t": "Tab", " ": "space"}.get(character, character))

    def move(self, x, y):
        xtest.fake_input(self._display, X.MotionNotify, x=round(x), y=round(y))
        self._display.sync()

    def button(self, down, number=1):
        xtest.fake_input(self._display, X.ButtonPress if down else X.ButtonRelease, number)
        self._display.sync()

    def click(self, x, y, number=1):
        self.move(x, y)
        self.button(True, number)
        self.button(False, number)

    def drag(self, start, end):
        self.move(*start)
        self.button(True)
        for step in range(1, 11):
            self.move(*(a + (b - a) * step / 10 for a, b in zip(start, end)))
        self.button(False)

    def scroll(self, x, y, clicks):
        """Turns the wheel: up for positive clicks, down for negative ones."""
        for _ in range(abs(clicks)):
            self.click(x, y, 4 if clicks > 0 else 5)

    def close(self):
        self._display.close()

    def _chord(self, held, code):
        for modifier in held:
            xtest.fake_input(self._display, X.KeyPress, modifier)
        xtest.fake_input(self._display, X.KeyPress, code)
        xtest.fake_input(self._display, X.KeyRelease, code)
        for modifier in reversed(held):
            xtest.fake_input(self._display, X.KeyRelease, modifier)
        self._display.sync()

    def _x_code(self, key):
        """The X server's code of the key, and whether Shift is needed to get that character."""
        keysym = XK.string_to_keysym(key) or ord(key)
        codes = sorted(self._display.keysym_to_keycodes(keysym), key=lambda found: found[1])
        code, level = codes[0]
        return code, level == 1
