"""The copied text after the program has ended."""

from harness.case import DesktopCase
from harness.clipboard import Manager, pasted

TEXT = "https://b.example/*"


class Clipboard(DesktopCase):
    def setUp(self):
        super().setUp()
        self.write(".claude/browser-patterns.json", f'{{"/work/beta":["{TEXT}"]}}')
        self.write(".vantle/sessions.json", '[{"cwd":"/work/beta"}]')

    def start_manager(self, respond):
        manager = Manager(respond)
        self.addCleanup(manager.close)
        return manager

    def select(self):
        program = self.start()
        program.show("Browser Patterns")
        program.click("text", "URL patterns for /work/beta")
        program.press("ctrl+a")
        self.expect(lambda: pasted("PRIMARY") == TEXT, "nothing is selected")
        return program

    def copy(self):
        program = self.select()
        program.press("ctrl+c")
        self.expect(lambda: pasted() == TEXT, lambda: f"the clipboard has {pasted()!r} instead of {TEXT!r}")
        return program

    def test_a_clipboard_manager_keeps_the_text(self):
        manager = self.start_manager(respond=True)
        self.finish(self.copy())
        self.assertEqual(pasted(), TEXT)
        self.assertEqual(manager.requests, 1)

    # If the toolkit waited for a manager in vain, it would print a warning, and finish() would fail.

    def test_a_manager_that_never_answers_does_not_delay_the_end(self):
        manager = self.start_manager(respond=False)
        self.finish(self.copy())
        self.assertEqual(manager.requests, 1)

    def test_a_manager_is_not_asked_to_keep_a_mere_selection(self):
        manager = self.start_manager(respond=False)
        self.finish(self.select())
        self.assertEqual(manager.requests, 0)

    def test_without_a_manager_the_program_ends_at_once(self):
        self.finish(self.copy())
