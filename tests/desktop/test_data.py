"""The Data & Privacy page: three questions, each answered both ways by mouse and by keyboard."""

from harness.case import DesktopCase

PATTERNS = ".claude/browser-patterns.json"


class Question:
    """The tests of each of the three questions. A subclass has the texts of its question, and expect_agreed(), which
    checks the effect of agreeing."""

    BUTTON = MESSAGE = INFORMATIVE = ACTION = None

    def setUp(self):
        super().setUp()
        self.write(PATTERNS, '{"/work/alpha":["https://a.example/*"]}')
        self.write(".vantle/sessions.json", '[{"cwd":"/work/alpha"},{"cwd":"/work/beta"}]')

    def ask(self):
        self.program = self.start()
        self.program.show("Data & Privacy")
        self.program.click("push button", self.BUTTON)
        dialog = self.program.dialog(self.MESSAGE)
        self.assertEqual(dialog.description, self.INFORMATIVE)
        self.assertEqual({button.name for button in dialog.find_all("push button")}, {self.ACTION, "Cancel"})
        return dialog

    def expect_declined(self):
        """Checks that nothing was done."""
        self.program.expect_no_dialog()
        self.finish(self.program)
        self.assertEqual(self.agent.requests, [])
        self.expect_file(PATTERNS, '{"/work/alpha":["https://a.example/*"]}')

    def test_the_first_button_agrees(self):
        self.answer(self.ask(), self.ACTION)
        self.expect_agreed()

    def test_return_agrees(self):
        self.ask()
        self.program.press("Return")
        self.expect_agreed()

    def test_cancel_declines(self):
        self.answer(self.ask(), "Cancel")
        self.expect_declined()

    def test_escape_declines(self):
        self.ask()
        self.program.press("Escape")
        self.expect_declined()

    def answer(self, dialog, button):
        self.program.click_here(dialog.find("push button", button))


class Sessions(Question, DesktopCase):
    BUTTON, MESSAGE, ACTION = "Clear Sessions…", "Clear all sessions?", "Clear"
    INFORMATIVE = "The notch will forget every session it knows about. This cannot be undone."

    def expect_agreed(self):
        self.expect_requests("/settings/clear-sessions")
        self.expect(lambda: self.subtitle().startswith("0 stored · "),
                    lambda: f"the subtitle is {self.subtitle()!r} instead of “0 stored · …”")
        self.expect_file(".vantle/sessions.json", '[{"cwd":"/work/alpha"},{"cwd":"/work/beta"}]')

    def subtitle(self):
        return self.program.find("push button", self.BUTTON).description

    def test_the_row_shows_the_count_and_the_file(self):
        self.program = self.start()
        self.program.show("Data & Privacy")
        self.assertEqual(self.subtitle(), f"2 stored · {self.home}/.vantle/sessions.json")


class Patterns(Question, DesktopCase):
    BUTTON, MESSAGE, ACTION = "Clear Browser Patterns…", "Clear browser patterns?", "Clear"
    INFORMATIVE = "All URL patterns for every project will be removed."

    def expect_agreed(self):
        self.expect(lambda: not (self.home / PATTERNS).exists(), "the file is not removed")
        row = self.program.find("push button", self.BUTTON)
        self.expect_description(row, "0 projects configured")
        self.program.show("Browser Patterns")
        for project in ("/work/alpha", "/work/beta"):
            self.assertEqual(self.program.find("text", f"URL patterns for {project}").text, "")
        self.finish(self.program)
        self.assertEqual(self.agent.requests, [])

    def test_the_row_shows_the_count(self):
        program = self.start()
        program.show("Data & Privacy")
        self.assertEqual(program.find("push button", self.BUTTON).description, "1 projects configured")


class Hooks(Question, DesktopCase):
    BUTTON, MESSAGE, ACTION = "Uninstall Hooks…", "Uninstall Vantle hooks?", "Uninstall"
    INFORMATIVE = (
        "Vantle will remove its entries from ~/.claude/settings.json and ~/.codex/hooks.json and delete "
        "~/.claude/scripts/vantle.sh.\n\n"
        "Without these hooks Vantle will not function as expected: the notch overlay will stop receiving session "
        "events, notifications will not appear, and most features will be inert until you reinstall.\n\n"
        "Backups of the modified files are written next to the originals.")

    def expect_agreed(self):
        self.expect_requests("/settings/uninstall-hooks")
        self.finish(self.program)

    def test_without_an_agent_agreeing_does_nothing_visible(self):
        self.agent.close()
        self.answer(self.ask(), self.ACTION)
        self.program.expect_no_dialog()
        self.finish(self.program)
