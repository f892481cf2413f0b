"""Keys that are held down: real ones, which the X server repeats. With VANTLE_LONG_TESTS at all rates that keyboards are
set to, from slow to fast; without, at the server's own."""

import contextlib
import os
import subprocess

from harness.case import DesktopCase
from harness.clipboard import pasted
from harness.keys import in_words
from harness.repeats import Presses

# Milliseconds until the first repeat, and repeats a second.
RATES = ((660, 25), (500, 33), (20, 100)) if "VANTLE_LONG_TESTS" in os.environ else ((500, 33),)
REPEATS = 12

QUESTIONS = (("Clear Sessions…", "Clear all sessions?", "Clear", "/settings/clear-sessions"),
             ("Clear Browser Patterns…", "Clear browser patterns?", "Clear", None),
             ("Uninstall Hooks…", "Uninstall Vantle hooks?", "Uninstall", "/settings/uninstall-hooks"))

WAITING = "Press shortcut…"
RECORDER = "Focus next notification shortcut"
SPACE, RETURN, Q, W, X, UP, DOWN, PAGE_UP, PAGE_DOWN = 57, 28, 16, 17, 45, 103, 108, 104, 109


class HeldKeyCase(DesktopCase):
    def setUp(self):
        super().setUp()
        self.presses = Presses()
        self.addCleanup(self.presses.close)
        self.addCleanup(subprocess.run, ["xset", "r", "rate"], check=True, timeout=20)

    @contextlib.contextmanager
    def repeating(self, rate):
        with self.subTest(rate=rate):
            subprocess.run(["xset", "r", "rate", *map(str, rate)], check=True, timeout=20)
            yield

    @contextlib.contextmanager
    def holding(self, code, *modifiers):
        """A key held down while a block is run, and then until it has been repeated."""
        with self.desktop.input.holding(code, *modifiers):
            yield
            already = self.presses.count
            self.expect(lambda: self.presses.count >= already + REPEATS, "the key is not repeated")

    def focus(self, control):
        control.act(control.actions.index("SetFocus"))
        self.expect(lambda: control.has("focused"), f"{control} does not get the keyboard")
        return control

    def hold(self, code, *modifiers):
        with self.holding(code, *modifiers):
            pass

    def expect_everything_done(self, program, control):
        """Keys are delivered in order: once a Tab has moved the focus away from the control, all keys before it
        were handled."""
        self.expect(lambda: control.has("focused"), f"{control} does not have the keyboard")
        program.press("Tab")
        self.expect(lambda: not control.has("focused"), "Tab does not arrive")
        program.press("shift+Tab")
        self.expect(lambda: control.has("focused"), "Tab does not come back")

    def expect_answered(self, program):
        program.expect_no_dialog()
        program.ready()

    def expect_posted(self, *targets):
        self.expect(lambda: len(self.agent.targets) >= len(targets), lambda: f"posted: {self.agent.targets}")
        self.assertEqual(self.agent.targets, list(targets))


class HeldKeys(HeldKeyCase):
    def test_a_held_space_opens_a_question_and_does_not_answer_it(self):
        program = self.start()
        program.show("Data & Privacy")
        for rate in RATES:
            with self.repeating(rate):
                for button, message, action, _ in QUESTIONS:
                    self.focus(program.find("push button", button))
                    self.hold(SPACE)  # a button is clicked when it is released, or seems to be
                    dialog = program.dialog(message)
                    self.expect_everything_done(program, dialog.find("push button", action))
                    self.assertTrue(dialog.has("active"), f"{message} was answered")
                    program.press("Escape")
                    self.expect_answered(program)
        self.assertEqual(self.agent.targets, [])

    def test_a_held_key_that_is_down_before_a_question_does_not_answer_it(self):
        program = self.start()
        program.show("Data & Privacy")
        for rate in RATES:
            with self.repeating(rate):
                for key in (RETURN, SPACE):
                    with self.holding(key):
                        program.click("push button", QUESTIONS[0][0])
                        dialog = program.dialog(QUESTIONS[0][1])
                    self.expect_everything_done(program, dialog.find("push button", QUESTIONS[0][2]))
                    self.assertTrue(dialog.has("active"), "the question was answered")
                    program.press("Escape")
                    self.expect_answered(program)
        self.assertEqual(self.agent.targets, [])

    def test_a_key_held_on_the_default_button_answers_once(self):
        program = self.start()
        program.show("Data & Privacy")
        posted = []
        for rate in RATES:
            with self.repeating(rate):
                for (button, message, _, target), key in zip((*QUESTIONS, QUESTIONS[0]), (RETURN,) * 3 + (SPACE,)):
                    opening = self.focus(program.find("push button", button))
                    program.press("space")
                    program.dialog(message)
                    self.hold(key)
                    self.expect_answered(program)
                    self.expect_everything_done(program, opening)
                    posted += [target] if target else []
                    self.expect_posted(*posted)
                    program.expect_no_dialog()

    def test_a_held_space_flips_a_switch_once(self):
        program = self.start()
        switch = self.focus(program.find("check box", "Marketing Recording Mode"))
        for number, rate in enumerate(RATES, 1):
            with self.repeating(rate):
                self.hold(SPACE)
                self.expect_everything_done(program, switch)
                self.expect_posted(*["/settings/reload-green-screen"] * number)
                self.assertEqual(switch.has("checked"), number % 2 == 1)

    def test_a_combination_that_is_held_is_recorded_once_and_does_nothing_else(self):
        program = self.start()
        recorder = self.focus(program.find("push button", RECORDER))
        number = 0
        for rate in RATES:
            with self.repeating(rate):
                for code, modifier, shown in ((SPACE, "super", "⌘␣"), (SPACE, "ctrl", "⌃␣"), (W, "super", "⌘W"),
                                               (Q, "super", "⌘Q"), (RETURN, "super", "⌘↩"), (W, "ctrl", "⌃W"),
                                               (Q, "ctrl", "⌃Q")):
                    with self.subTest(shown=shown):
                        self.hold(SPACE)
                        self.expect(lambda: recorder.description == WAITING, lambda: recorder.description)
                        self.hold(RETURN)
                        self.assertEqual(recorder.description, WAITING)
                        self.hold(code, modifier)
                        self.expect(lambda: recorder.description == in_words(shown), lambda: recorder.description)
                        self.expect_everything_done(program, recorder)
                        number += 1
                        self.expect_posted(*["/settings/reload-shortcuts"] * number)
                        self.assertEqual(recorder.description, in_words(shown))


class HeldMenuButton(HeldKeyCase):
    def setUp(self):
        super().setUp()
        self.write(".vantle/planning.json", f'{{"root":"{self.home}/plan"}}')
        self.write("plan/projects.toml", f'[[projects]]\nname = "Gone"\npath = "{self.home}/gone"\n')

    def test_a_held_space_opens_a_menu_and_chooses_nothing(self):
        program = self.start()
        program.show("Planning")
        for rate in RATES:
            with self.repeating(rate):
                self.focus(program.find("push button", "Actions for Gone"))
                self.hold(SPACE)
                program.press("Down")
                self.expect(lambda: program.last_focused("Copy Path"),
                            lambda: f"{program.last_focused()} has the focus")
                program.press("Escape")
        self.assertEqual(pasted(), "")


class KeysThatRepeat(HeldKeyCase):
    """What a held key goes on doing. How often depends on when it is let go, so each test waits for more than the press
    and its first repeat can have done."""

    def setUp(self):
        super().setUp()
        self.write(".vantle/sessions.json", f'[{{"cwd":"{self.home}"}}]')
        self.write(".vantle/planning.json", f'{{"root":"{self.home}/plan"}}')
        self.write("plan/projects.toml", "".join(f'[[projects]]\nname = "P{number}"\npath = "{self.home}/{number}"\n'
                                                 for number in range(100)))

    def test_a_held_letter_is_typed_again_and_again(self):
        program = self.start()
        program.show("Browser Patterns")
        editor = program.click_on(program.find("text", f"URL patterns for {self.home}"))
        for rate in RATES:
            with self.repeating(rate):
                before = len(editor.text)
                with self.desktop.input.holding(X):
                    self.expect(lambda: len(editor.text) > before + 2, lambda: f"only {editor.text} is typed")
                self.assertEqual(set(editor.text), {"x"})

    def test_a_held_arrow_walks_through_the_pages(self):
        program = self.start()
        pages = program.pages()
        self.assertGreater(len(pages), 3)
        program.focus("list", "Sections")
        for rate in RATES:
            with self.repeating(rate):
                for key, page in ((DOWN, pages[-1]), (UP, pages[0])):
                    with self.desktop.input.holding(key):
                        self.expect(lambda: program.shows("panel", page), f"the arrow does not get to {page}")

    def test_a_held_page_key_scrolls_on_to_the_end(self):
        program = self.start()
        program.show("Planning")
        first, last = (program.find("push button", f"Actions for P{number}") for number in (0, 99))
        program.focus("push button", "Actions for P0")
        _, top, _, height = program.window.box

        def is_in_view(row):
            return top <= row.box[1] < top + height

        self.assertTrue(is_in_view(first) and not is_in_view(last))
        for rate in RATES:
            with self.repeating(rate):
                for key, row in ((PAGE_DOWN, last), (PAGE_UP, first)):
                    with self.desktop.input.holding(key):
                        self.expect(lambda: is_in_view(row), f"{row} is not reached")
