"""Keys that are held down and repeated by the X server. With VANTLE_LONG_TESTS at a slow, a usual and a fast repeat
rate; without, at the usual one."""

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
        """Holds a key down during the block, and after it until the key has been repeated REPEATS more times."""
        with self.desktop.input.holding(code, *modifiers):
            yield
            already = self.presses.count
            self.expect(lambda: self.presses.count >= already + REPEATS, "the key is not repeated")

    def focus(self, control):
        control.act(control.actions.index("SetFocus"))
        self.expect(lambda: control.has("focused"), f"{control} does not get the focus")
        return control

    def hold(self, code, *modifiers):
        with self.holding(code, *modifiers):
            pass

    def expect_keys_handled(self, program, control):
        """Waits until a Tab has moved the focus away from the control and back. Keys are delivered in order, so all
        earlier keys have been handled then."""
        self.expect(lambda: control.has("focused"), f"{control} does not have the focus")
        program.press("Tab")
        self.expect(lambda: not control.has("focused"), "Tab does not move the focus")
        program.press("shift+Tab")
        self.expect(lambda: control.has("focused"), "Shift+Tab does not move the focus back")

    def expect_dialog_closed(self, program):
        program.expect_no_dialog()
        program.ready()

    def expect_targets(self, *targets):
        self.expect(lambda: len(self.agent.targets) >= len(targets),
                    lambda: f"the agent has received {self.agent.targets} instead of {list(targets)}")
        self.assertEqual(self.agent.targets, list(targets))


class HeldKeys(HeldKeyCase):
    def test_a_held_space_opens_a_question_and_does_not_answer_it(self):
        program = self.start()
        program.show("Data & Privacy")
        for rate in RATES:
            with self.repeating(rate):
                for button, message, action, _ in QUESTIONS:
                    self.focus(program.find("push button", button))
                    self.hold(SPACE)  # a button is clicked on release, and each repeat looks like one
                    dialog = program.dialog(message)
                    self.expect_keys_handled(program, dialog.find("push button", action))
                    self.assertTrue(dialog.has("active"), f"{message} was answered")
                    program.press("Escape")
                    self.expect_dialog_closed(program)
        self.assertEqual(self.agent.targets, [])

    def test_a_key_held_before_a_question_opens_does_not_answer_it(self):
        program = self.start()
        program.show("Data & Privacy")
        for rate in RATES:
            with self.repeating(rate):
                for key in (RETURN, SPACE):
                    with self.holding(key):
                        program.click("push button", QUESTIONS[0][0])
                        dialog = program.dialog(QUESTIONS[0][1])
                    self.expect_keys_handled(program, dialog.find("push button", QUESTIONS[0][2]))
                    self.assertTrue(dialog.has("active"), "the question was answered")
                    program.press("Escape")
                    self.expect_dialog_closed(program)
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
                    self.expect_dialog_closed(program)
                    self.expect_keys_handled(program, opening)
                    posted += [target] if target else []
                    self.expect_targets(*posted)
                    program.expect_no_dialog()

    def test_a_held_space_flips_a_switch_once(self):
        program = self.start()
        switch = self.focus(program.find("check box", "Marketing Recording Mode"))
        for number, rate in enumerate(RATES, 1):
            with self.repeating(rate):
                self.hold(SPACE)
                self.expect_keys_handled(program, switch)
                self.expect_targets(*["/settings/reload-green-screen"] * number)
                self.assertEqual(switch.has("checked"), number % 2 == 1)

    def test_a_held_combination_is_recorded_once_and_does_nothing_else(self):
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
                        self.expect_description(recorder, WAITING)
                        self.hold(RETURN)
                        self.assertEqual(recorder.description, WAITING)
                        self.hold(code, modifier)
                        self.expect_description(recorder, in_words(shown))
                        self.expect_keys_handled(program, recorder)
                        number += 1
                        self.expect_targets(*["/settings/reload-shortcuts"] * number)
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
    """Keys whose action is repeated while they are held. The number of repeats depends on the time of the release, so
    each test waits for an effect that the press and one repeat cannot have."""

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
                    self.expect(lambda: len(editor.text) > before + 2,
                                lambda: f"after {before} letters only {editor.text!r} is typed")
                self.assertEqual(set(editor.text), {"x"})

    def test_a_held_arrow_key_goes_through_the_pages(self):
        program = self.start()
        pages = program.pages()
        self.assertGreater(len(pages), 3)
        program.focus("list", "Sections")
        for rate in RATES:
            with self.repeating(rate):
                for key, page in ((DOWN, pages[-1]), (UP, pages[0])):
                    with self.desktop.input.holding(key):
                        self.expect(lambda: program.shows("panel", page),
                                    f"the arrow key does not reach the page {page}")

    def test_a_held_page_key_scrolls_to_the_end(self):
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
                        self.expect(lambda: is_in_view(row), f"{row} is not scrolled into view")
