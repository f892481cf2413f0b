"""Shortcuts pressed on the keyboard: which keys are recorded, how they are shown, and which keys are swallowed."""

import itertools
import json
import subprocess

from harness.case import DesktopCase
from harness.keys import in_words

FILE = ".vantle/shortcuts.json"
NEXT, PREVIOUS, PLAN = (f"{title} shortcut" for title in (
    "Focus next notification", "Focus previous notification", "Open Planning tab"))
WAITING = "Press shortcut…"

# A key by its name on a US keyboard: the kernel's code and the macOS virtual key code.
KEYS = {
    "`": (41, 50), "1": (2, 18), "-": (12, 27), "=": (13, 24), "Q": (16, 12), "Y": (21, 16), "[": (26, 33),
    "]": (27, 30), "A": (30, 0), "J": (36, 38), ";": (39, 41), "'": (40, 39), "\\": (43, 42), "<": (86, 10),
    "Z": (44, 6), "M": (50, 46), "/": (53, 44), "ro": (89, 94), "yen": (124, 93), "F5": (63, 96),
    "Escape": (1, 53), "Tab": (15, 48), "space": (57, 49), "W": (17, 13),
    "Home": (102, 115), "Up": (103, 126), "keypad 7": (71, 89), "keypad .": (83, 65),
}

# Keys that are never recorded.
CAPS_LOCK, NUM_LOCK, PRINT = 58, 69, 99

# Modifiers, the mask that is recorded for them, and the symbols that are shown.
MODIFIERS = [
    (["super"], 0x0100, "⌘"),
    (["ctrl", "shift"], 0x1200, "⌃⇧"),
    (["alt"], 0x0800, "⌥"),
    (["shift", "super"], 0x0300, "⇧⌘"),
    (["ctrl", "alt", "shift", "super"], 0x1B00, "⌃⌥⇧⌘"),
]

# The symbols of keys under each layout, in the order of the keys' codes.
US = {"`": "`", "1": "1", "-": "-", "=": "=", "Q": "Q", "Y": "Y", "[": "[", "A": "A", ";": ";", "'": "'",
      "\\": "\\", "Z": "Z", "F5": "F5", "Home": "↖", "keypad 7": "7", "keypad .": "."}
LAYOUTS = {
    ("us",): US,
    ("de",): {"`": "⟨50⟩", "1": "1", "-": "SS", "=": "⟨24⟩", "Q": "Q", "Y": "Z", "[": "Ü", "]": "+", "A": "A",
              ";": "Ö", "'": "Ä", "\\": "#", "<": "<", "Z": "Y", "/": "-", "keypad .": ","},
    ("fr",): {"`": "²", "1": "&", "-": ")", "=": "=", "Q": "A", "Y": "Y", "[": "⟨33⟩", "]": "$", "A": "Q",
              ";": "M", "'": "Ù", "\\": "*", "<": "<", "Z": "W", "M": ",", "/": "!"},
    ("gb",): {"`": "`", "1": "1", "-": "-", "Q": "Q", "Y": "Y", "[": "[", "A": "A", "'": "'", "\\": "#", "<": "\\",
              "Z": "Z", "/": "/", "Up": "↑"},
    ("us", "-variant", "dvorak"): {
        "`": "`", "1": "1", "-": "[", "=": "]", "Q": "'", "Y": "F", "[": "/", "A": "A", "J": "H", ";": "S",
        "'": "-", "\\": "\\", "Z": ";", "/": "Z"},
    ("jp",): {"`": "⟨50⟩", "1": "1", "-": "-", "=": "^", "Q": "Q", "[": "@", "]": "[", "A": "A", ";": ";",
              "'": ":", "\\": "]", "ro": "\\", "yen": "\\", "Z": "Z"},
    # Without any Latin layout the symbols of a US keyboard are shown.
    ("ru",): US,
}


def use_layout(*layout, options=""):
    subprocess.run(["setxkbmap", "-option", "", "-option", options, "-layout", *layout], check=True, timeout=20)


class ShortcutCase(DesktopCase):
    def setUp(self):
        super().setUp()
        use_layout("us")
        self.addCleanup(use_layout, "us")

    def press_key(self, key, *modifiers):
        """Presses and releases a key, by its name in KEYS or by the kernel's code, with modifiers held."""
        self.desktop.input.press_code(KEYS[key][0] if key in KEYS else key, *modifiers)

    def expect_shown(self, recorder, text):
        self.expect(lambda: recorder.description == in_words(text),
                    lambda: f"{recorder} shows {recorder.description} instead of {text}")

    def record(self, recorder, key, *modifiers):
        recorder.act()
        self.expect_shown(recorder, WAITING)
        self.press_key(key, *modifiers)
        self.expect(lambda: recorder.description != WAITING, f"{key} with {modifiers} is not recorded")

    def binding(self, action="focusLast"):
        combo = json.loads((self.home / FILE).read_text())[action]
        return combo["keyCode"], combo["modifiers"]


class Layouts(ShortcutCase):
    def expect_keys(self, recorder, shown):
        """Records every key, each with other modifiers than the one before."""
        for (key, symbol), (modifiers, mask, glyphs) in zip(shown.items(), itertools.cycle(MODIFIERS)):
            with self.subTest(key=key, modifiers=modifiers):
                self.record(recorder, key, *modifiers)
                self.expect_shown(recorder, glyphs + symbol)
                self.assertEqual(self.binding(), (KEYS[key][1], mask))

    def test_keys_are_recorded_by_position_and_shown_as_printed(self):
        recorder = self.start().find("push button", NEXT)
        for layout, shown in LAYOUTS.items():
            with self.subTest(layout=layout):
                self.assertGreaterEqual(len(shown), 12)
                use_layout(*layout)
                self.expect_keys(recorder, shown)

    def test_a_second_latin_layout_replaces_one_that_is_not_latin(self):
        use_layout("ru,us", options="grp:caps_toggle")
        recorder = self.start().find("push button", NEXT)
        # The comma of the Russian layout is on keys that the US layout does not define.
        shown = US | {"keypad .": ","}
        self.expect_keys(recorder, shown)
        self.press_key(CAPS_LOCK)
        self.addCleanup(self.press_key, CAPS_LOCK)
        self.expect_keys(recorder, shown)

    def test_a_change_of_layout_shows_at_once(self):
        self.write(FILE, '{"focusLast":{"keyCode":16,"modifiers":256}}')
        recorder = self.start().find("push button", NEXT)
        self.expect_shown(recorder, "⌘Y")
        use_layout("de")
        self.expect_shown(recorder, "⌘Z")
        use_layout("us", "-variant", "dvorak")
        self.expect_shown(recorder, "⌘F")

    def test_a_switch_between_two_latin_layouts_shows_at_once(self):
        self.write(FILE, '{"focusLast":{"keyCode":16,"modifiers":256}}')
        use_layout("us,de", options="grp:caps_toggle")
        program = self.start()
        recorder = program.find("push button", NEXT)
        self.expect_shown(recorder, "⌘Y")
        self.press_key(CAPS_LOCK)
        self.expect_shown(recorder, "⌘Z")
        self.press_key(CAPS_LOCK)
        self.expect_shown(recorder, "⌘Y")

    def test_the_default_shows_as_the_layout_prints_it(self):
        use_layout("us", "-variant", "dvorak")
        program = self.start()
        self.expect_shown(program.find("push button", NEXT), "⇧⌘H")
        program.find("push button", "Reset Focus next notification to default (⇧⌘H)")


class Recording(ShortcutCase):
    def setUp(self):
        super().setUp()
        self.program = self.start()
        self.recorder = self.program.find("push button", NEXT)

    def begin(self):
        self.program.click_on(self.recorder)
        self.expect_shown(self.recorder, WAITING)

    def expect_swallowed(self, key, *modifiers):
        """Checks that the recorder does not record a stroke and continues to wait: it records the next one."""
        next_key, shown = ("Home", "⌘↖") if self.recorder.description == in_words("⌘↑") else ("Up", "⌘↑")
        self.begin()
        self.press_key(key, *modifiers)
        self.press_key(next_key, "super")
        self.expect_shown(self.recorder, shown)

    def test_escape_cancels_with_any_modifiers(self):
        for modifiers in ([], ["super"], ["ctrl", "shift"]):
            self.begin()
            self.press_key("Escape", *modifiers)
            self.expect_shown(self.recorder, "⇧⌘J")
        self.expect_no_file(FILE)

    def test_typing_keys_and_bare_modifiers_are_swallowed(self):
        for stroke in (["J"], ["J", "shift"], ["F5"], ["Tab"], ["Tab", "shift"], ["space"],
                       [CAPS_LOCK], [CAPS_LOCK, "ctrl"], [NUM_LOCK], [NUM_LOCK, "super"], [PRINT, "ctrl"]):
            with self.subTest(stroke=stroke):
                self.expect_swallowed(*stroke)

    def test_altgr_alone_makes_no_shortcut(self):
        use_layout("de")
        self.expect_swallowed("J", "altgr")

    def test_locks_and_altgr_are_ignored(self):
        use_layout("de")
        for stroke, shown in ((["J", "super"], "⌘J"), (["J", "super", "shift"], "⇧⌘J"),
                              (["keypad 7", "super"], "⌘7"), (["J", "altgr", "ctrl"], "⌃J")):
            for lock in (CAPS_LOCK, NUM_LOCK):
                with self.subTest(stroke=stroke, lock=lock):
                    self.press_key(lock)
                    self.record(self.recorder, *stroke)
                    self.expect_shown(self.recorder, shown)
                    self.press_key(lock)

    def test_shift_tab_is_the_tab_key(self):
        self.record(self.recorder, "Tab", "ctrl", "shift")
        self.expect_shown(self.recorder, "⌃⇧⇥")
        self.assertEqual(self.binding(), (48, 0x1200))

    def test_a_held_key_is_recorded_once(self):
        subprocess.run(["xset", "r", "rate", "20", "100"], check=True, timeout=20)
        other = self.program.find("push button", PREVIOUS)
        self.begin()
        with self.desktop.input.holding(KEYS["Y"][0], "super"):
            self.expect_shown(self.recorder, "⌘Y")
            other.act()
            self.expect_shown(other, WAITING)
            # A hundred queries take long enough for the key to be repeated many times.
            self.assertEqual({other.description for _ in range(100)}, {WAITING})
        self.press_key("Up", "super")
        self.expect_shown(other, "⌘↑")
        self.expect_requests("/settings/reload-shortcuts", "/settings/reload-shortcuts")

    def test_a_second_recorder_stops_the_first(self):
        self.begin()
        other = self.program.click("push button", PLAN)
        self.expect_shown(other, WAITING)
        self.expect_shown(self.recorder, "⇧⌘J")
        self.press_key("Y", "super")
        self.expect_shown(other, "⌘Y")
        self.expect_shown(self.recorder, "⇧⌘J")

    def test_two_actions_may_share_a_combination(self):
        self.record(self.recorder, "J", "ctrl")
        other = self.program.find("push button", PLAN)
        self.record(other, "J", "ctrl")
        self.expect_shown(self.recorder, "⌃J")
        self.expect_shown(other, "⌃J")
        self.assertEqual(self.binding("focusLast"), self.binding("openPlan"))

    def test_the_keyboard_alone_records_and_resets(self):
        self.program.focus("push button", NEXT)
        self.expect_shown(self.recorder, "⇧⌘J")
        self.program.press("space")
        self.expect_shown(self.recorder, WAITING)
        self.press_key("Y", "alt")
        self.expect_shown(self.recorder, "⌥Y")
        self.assertTrue(self.recorder.has("focused"))
        self.program.press("Tab")
        reset = self.program.find("push button", "Reset Focus next notification to default (⇧⌘J)")
        self.expect(lambda: reset.has("focused"), "Tab does not move the focus to the reset button")
        self.program.press("space")
        self.expect_shown(self.recorder, "⇧⌘J")


class HandEditedFiles(ShortcutCase):
    def test_a_key_code_that_no_key_has_is_shown_and_kept(self):
        self.write(FILE, '{"openPlan":{"keyCode":65536,"modifiers":0},'
                         '"focusLast":{"keyCode":4294967295,"modifiers":256}}')
        program = self.start()
        self.expect_shown(program.find("push button", PLAN), "⟨65536⟩")
        self.expect_shown(program.find("push button", NEXT), "⌘⟨4294967295⟩")
        self.record(program.find("push button", PREVIOUS), "Y", "super")
        self.assertEqual(self.binding("openPlan"), (65536, 0))
        self.assertEqual(self.binding("focusLast"), (4294967295, 256))
        self.finish(program)

    def test_unknown_modifier_bits_are_not_shown_and_kept(self):
        self.write(FILE, '{"openPlan":{"keyCode":37,"modifiers":1280}}')
        program = self.start()
        self.expect_shown(program.find("push button", PLAN), "⌘L")
        self.record(program.find("push button", PREVIOUS), "Y", "super")
        self.assertEqual(self.binding("openPlan"), (37, 1280))
