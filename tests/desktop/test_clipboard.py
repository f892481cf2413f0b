"""What becomes of a copied text when the program ends."""

from harness.case import DesktopCase
from harness.clipboard import Manager, pasted

TEXT = "https://b.example/*"


class Clipboard(DesktopCase):
    def setUp(self):
        super().setUp()
        self.write(".claude/browser-patterns.json", f'{{"/work/beta":["{TEXT}"]}}')
        self.write(".vantle/sessions.json", '[{"cwd":"/work/beta"}]')

    def manage(self, quick):
        manager = Manager(quick)
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
        self.expect(lambda: pasted() == TEXT, pasted)
        return program

    def test_a_clipboard_manager_keeps_it(self):
        manager = self.manage(quick=True)
        self.finish(self.copy())
        self.assertEqual(pasted(), TEXT)
        self.assertEqual(manager.requests, 1)

    # The toolkit complains when it has waited for a manager in vain, and that would have been said.

    def test_a_manager_that_never_answers_holds_nothing_up(self):
        manager = self.manage(quick=False)
        self.finish(self.copy())
        self.assertEqual(manager.requests, 1)

    def test_a_manager_is_not_asked_to_keep_a_mere_selection(self):
        manager = self.manage(quick=False)
        self.finish(self.select())
        self.assertEqual(manager.requests, 0)

    def test_without_a_manager_nothing_is_waited_for(self):
        self.finish(self.copy())
