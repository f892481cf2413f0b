"""Real key strokes and mouse movements, through the X server's test extension."""

import contextlib

from Xlib import XK, X, display
from Xlib.ext import xtest

_MODIFIERS = {"ctrl": "Control_L", "shift": "Shift_L", "alt": "Alt_L", "super": "Super_L"}

# The kernel's codes of the same keys and of AltGr, wherever the layout has put their signs.
_MODIFIER_PLACES = {"ctrl": 29, "shift": 42, "alt": 56, "super": 125, "altgr": 100}
_X_OFFSET = 8


class Hands:
    """A keyboard and a mouse at the screen of DISPLAY. Coordinates are pixels."""

    def __init__(self):
        self._display = display.Display()

    def press(self, *strokes):
        """Each stroke is a key's name with its modifiers before it: "Tab", "ctrl+w", "ctrl+shift+z". While a screen
        reader is there the toolkit delivers plain keys later than shortcuts: wait for what was typed before pressing
        one."""
        for stroke in strokes:
            *modifiers, key = stroke.split("+") if stroke != "+" else ["plus"]
            held = [self._code(_MODIFIERS[name])[0] for name in modifiers]
            code, shifted = self._code(key)
            if shifted:
                held.append(self._code("Shift_L")[0])
            self._chord(held, code)

    def strike(self, place, *modifiers):
        """A key by its place on the keyboard, as the kernel numbers it, whatever the layout."""
        self._chord([_MODIFIER_PLACES[name] + _X_OFFSET for name in modifiers], place + _X_OFFSET)

    @contextlib.contextmanager
    def holding(self, place, *modifiers):
        """The same key held down, which the server repeats."""
        codes = [_MODIFIER_PLACES[name] + _X_OFFSET for name in modifiers] + [place + _X_OFFSET]
        for code in codes:
            xtest.fake_input(self._display, X.KeyPress, code)
        self._display.sync()
        try:
            yield
        finally:
            for code in reversed(codes):
                xtest.fake_input(self._display, X.KeyRelease, code)
            self._display.sync()

    def type(self, text):
        """Types a text that the keyboard's layout has."""
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

    def _code(self, key):
        """The key's code, and whether Shift is needed to get that sign."""
        sign = XK.string_to_keysym(key) or ord(key)
        codes = sorted(self._display.keysym_to_keycodes(sign), key=lambda found: found[1])
        code, level = codes[0]
        return code, level == 1
