"""Shortcuts pressed under a Wayland compositor that supports virtual keyboards."""

import json

from harness.case import DesktopCase
from harness.compositor import Compositor, Keyboard
from harness.keys import in_words
from harness.program import Program

FILE = ".vantle/shortcuts.json"
WAITING = "Press shortcut…"
NEXT = "Focus next notification shortcut"

Q, Y, LEFT_OF_1, MINUS, W, ESCAPE, LESS, SPACE = 16, 21, 41, 12, 17, 1, 86, 57
REPEATS = 10  # presses of a held key that a test waits for


class WaylandKeyboard(DesktopCase):
    @classmethod
    def setUpClass(cls):
        with open(cls.desktop.folder / "compositor.log", "wb") as log:
            cls.compositor = Compositor(log)
        cls.addClassCleanup(cls.compositor.close)
        cls.keyboard = Keyboard(cls.compositor)
        cls.addClassCleanup(cls.keyboard.close)
        cls.count_offers = staticmethod(cls.desktop.accessibility.watch("NotifyListenersSync"))

    def setUp(self):
        super().setUp()
        self.keyboard.use_layout("us")
        # The Wayland client library is unloaded at the end, and leaks a few bytes whose stacks have no symbols then.
        self.program = Program(self.desktop, self.home, environment={
            "WAYLAND_DISPLAY": self.compositor.socket, "DISPLAY": "", "ASAN_OPTIONS": "detect_leaks=0"})
        self.addCleanup(self.program.kill)
        self.recorder = self.program.find("push button", NEXT)
        self.expect(lambda: self.program.frame.has("active"), "the window is not active")

    def expect_shown(self, text):
        self.expect(lambda: self.recorder.description == in_words(text),
                    lambda: f"the recorder shows {self.recorder.description!r} instead of {in_words(text)!r}")

    def expect_recorded(self, code, modifiers, mac_code, mask, shown):
        self.begin()
        self.keyboard.press_code(code, *modifiers)
        self.expect_shown(shown)
        combo = json.loads((self.home / FILE).read_text())["focusLast"]
        self.assertEqual((combo["keyCode"], combo["modifiers"]), (mac_code, mask))

    def begin(self):
        self.recorder.act()
        self.expect_shown(WAITING)

    def test_keys_are_recorded_by_position_and_shown_as_the_keymap_prints_them(self):
        for layout, shown in ((("us",), "QY-`"), (("de",), ["Q", "Z", "SS", "⟨50⟩"]), (("fr",), "AY)²"),
                              (("us", "-variant", "dvorak"), "'F[`"), (("ru,us",), "QY-`"),
                              (("jp",), ["Q", "Y", "-", "⟨50⟩"])):
            self.keyboard.use_layout(*layout)
            with self.subTest(layout=layout):
                self.expect_recorded(Q, ["super"], 12, 0x0100, "⌘" + shown[0])
                self.expect_recorded(Y, ["ctrl", "shift"], 16, 0x1200, "⌃⇧" + shown[1])
                self.expect_recorded(MINUS, ["alt"], 27, 0x0800, "⌥" + shown[2])
                self.expect_recorded(LEFT_OF_1, ["ctrl", "alt", "shift", "super"], 50, 0x1B00, "⌃⌥⇧⌘" + shown[3])

    def test_a_change_of_layout_shows_at_once(self):
        self.expect_recorded(Y, ["super"], 16, 0x0100, "⌘Y")
        self.keyboard.use_layout("de")
        self.expect_shown("⌘Z")

    def test_shortcuts_of_the_menus_are_recorded_and_not_triggered(self):
        self.expect_recorded(W, ["ctrl"], 13, 0x1000, "⌃W")
        self.expect_recorded(Q, ["ctrl"], 12, 0x1000, "⌃Q")

    def test_a_held_key_takes_effect_once(self):
        switch = self.program.find("check box", "Marketing Recording Mode")
        self.focus(switch)
        self.hold(SPACE)
        self.expect(lambda: switch.has("checked"), "the switch does not turn on")
        self.focus(self.recorder)
        for key, modifier, shown in ((SPACE, "super", "⌘␣"), (SPACE, "ctrl", "⌃␣"), (W, "ctrl", "⌃W"),
                                     (Q, "ctrl", "⌃Q")):
            self.hold(SPACE)
            self.expect_shown(WAITING)
            self.hold(key, modifier)
            self.expect_shown(shown)
        self.expect_requests("/settings/reload-green-screen", *["/settings/reload-shortcuts"] * 4)

        self.program.find("list", "Sections").find("list item", "Data & Privacy").act()
        self.focus(self.program.find("push button", "Clear Sessions…"))
        self.hold(SPACE)
        self.program.dialog("Clear all sessions?")
        self.keyboard.press_code(ESCAPE)
        self.program.expect_no_dialog()

    def focus(self, control):
        control.act(control.actions.index("SetFocus"))
        self.expect(lambda: control.has("focused"), f"{control} does not get the focus")

    def hold(self, code, *modifiers):
        """Holds a key until the program, which repeats it by its own timer, has offered REPEATS presses to screen
        readers."""
        before = self.presses()
        with self.keyboard.holding(code, *modifiers):
            self.expect(lambda: self.presses() >= before + REPEATS,
                        lambda: f"{self.presses() - before} presses instead of {REPEATS}")

    def presses(self):
        return self.count_offers("uint32 0")

    def test_escape_cancels(self):
        self.begin()
        self.keyboard.press_code(ESCAPE, "ctrl")
        self.expect_shown("⇧⌘J")
        self.keyboard.press_code(W, "ctrl")
        self.assertEqual(self.program.wait(), 0)
        self.expect_no_file(FILE)
