"""The folder dialog of the desktop's portal: whose window it belongs to, and how it ends."""

from harness.case import DesktopCase
from harness.portal import FilePortal

FILE = ".vantle/planning.json"
CANCELLED, CLOSED = 1, 2


class Portal(DesktopCase):
    def open(self, stopped=False):
        """The program, whose dialog has been asked for."""
        self.portal = FilePortal(stopped)
        self.addCleanup(self.portal.close)
        program = self.start()
        program.show("Planning")
        program.press("ctrl+o")
        if not stopped:
            self.expect(lambda: self.portal.options, "no dialog is asked for")
        panel = program.find("panel", "Planning Project Folder")
        panel.find("label", "Select the folder that holds your planning work.")
        return program

    def choose(self, program):
        return program.find("push button", "Choose planning root…")

    def test_it_belongs_to_the_window_and_starts_at_home(self):
        program = self.open()
        self.assertEqual(self.portal.parents, [f"x11:{program.window.identifier:x}"])
        self.assertEqual(bytes(self.portal.options[0]["current_folder"]), str(self.home).encode() + b"\0")

    def test_its_folder_becomes_the_root(self):
        plan = self.home / "plan"
        plan.mkdir()
        program = self.open()
        self.portal.answer(0, plan)
        self.expect_requests("/settings/reload-planning")
        program.find("label", str(plan))
        self.finish(program)
        self.assertEqual(self.portal.closed, 0)

    def test_after_a_dismissal_nothing_else_is_asked_and_the_keyboard_is_back(self):
        program = self.open()
        for code in CANCELLED, CLOSED:
            program.focus("push button", "Cancel")
            self.portal.answer(code)
            self.expect(lambda: self.choose(program).has("enabled"), "the page takes no input")
            program.expect_no_dialog()
            asked = len(self.portal.options)
            program.focus("push button", "Choose planning root…")
            program.press("space")
            self.expect(lambda: len(self.portal.options) == asked + 1, "it cannot be asked for again")
        self.portal.answer(CLOSED)
        self.expect(lambda: self.choose(program).has("focused"), "the keyboard is elsewhere")
        self.finish(program)

    def test_the_window_says_what_is_asked_and_takes_no_other_question(self):
        program = self.open()
        self.assertFalse(self.choose(program).has("enabled"))
        program.press("ctrl+o")
        program.press("Escape")
        self.expect(lambda: self.portal.closed == 1, "the dialog stays open")
        self.assertEqual(len(self.portal.options), 1)
        self.expect(lambda: self.choose(program).has("enabled"), "the page takes no input")
        self.finish(program)

    def test_closing_the_window_closes_it_and_ends_the_program(self):
        program = self.open()
        self.finish(program)
        self.expect(lambda: self.portal.closed == 1, "the dialog stays open")
        self.expect_no_file(FILE)

    def test_the_window_menus_keys_close_it_too(self):
        program = self.open()
        program.press("ctrl+w")
        self.expect_end(program)
        self.expect(lambda: self.portal.closed == 1, "the dialog stays open")

    def test_a_stopped_one_does_not_keep_the_window_from_closing(self):
        self.finish(self.open(stopped=True))

    def test_a_stopped_one_can_be_given_up(self):
        program = self.open(stopped=True)
        program.click_here(program.find("push button", "Cancel"))
        self.expect(lambda: self.choose(program).has("enabled"), "the page takes no input")
        program.expect_no_dialog()
        self.finish(program)
