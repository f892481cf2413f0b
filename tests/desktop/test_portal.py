"""The folder dialog of the desktop's portal: its parent window, its start folder, and how it ends."""

from harness.case import DesktopCase
from harness.portal import FilePortal

FILE = ".vantle/planning.json"
CANCELLED, CLOSED = 1, 2


class Portal(DesktopCase):
    def open(self, stopped=False):
        """Starts the program and opens the dialog. With `stopped` the portal does not answer the request."""
        self.portal = FilePortal(stopped)
        self.addCleanup(self.portal.close)
        program = self.start()
        program.show("Planning")
        program.press("ctrl+o")
        if not stopped:
            self.expect(lambda: self.portal.options, "no dialog is requested")
        panel = program.find("panel", "Planning Project Folder")
        panel.find("label", "Select the folder that holds your planning work.")
        return program

    def choose_button(self, program):
        return program.find("push button", "Choose planning root…")

    def test_the_dialogs_parent_is_the_window_and_it_starts_at_home(self):
        program = self.open()
        self.assertEqual(self.portal.parents, [f"x11:{program.window.identifier:x}"])
        self.assertEqual(bytes(self.portal.options[0]["current_folder"]), str(self.home).encode() + b"\0")

    def test_the_chosen_folder_becomes_the_root(self):
        plan = self.home / "plan"
        plan.mkdir()
        program = self.open()
        self.portal.answer(0, plan)
        self.expect_requests("/settings/reload-planning")
        program.find("label", str(plan))
        self.finish(program)
        self.assertEqual(self.portal.closed, 0)

    def test_after_a_dismissal_no_other_dialog_opens_and_the_button_has_the_focus(self):
        program = self.open()
        for code in CANCELLED, CLOSED:
            program.focus("push button", "Cancel")
            self.portal.answer(code)
            self.expect(lambda: self.choose_button(program).has("enabled"), "the page stays disabled")
            program.expect_no_dialog()
            requested = len(self.portal.options)
            program.focus("push button", "Choose planning root…")
            program.press("space")
            self.expect(lambda: len(self.portal.options) == requested + 1, "the dialog cannot be opened again")
        self.portal.answer(CLOSED)
        self.expect(lambda: self.choose_button(program).has("focused"), "the button does not have the focus")
        self.finish(program)

    def test_the_window_shows_the_question_and_does_not_open_a_second_dialog(self):
        program = self.open()
        self.assertFalse(self.choose_button(program).has("enabled"))
        program.press("ctrl+o")
        program.press("Escape")
        self.expect(lambda: self.portal.closed == 1, "the dialog stays open")
        self.assertEqual(len(self.portal.options), 1)
        self.expect(lambda: self.choose_button(program).has("enabled"), "the page stays disabled")
        self.finish(program)

    def test_closing_the_window_closes_the_dialog_and_ends_the_program(self):
        program = self.open()
        self.finish(program)
        self.expect(lambda: self.portal.closed == 1, "the dialog stays open")
        self.expect_no_file(FILE)

    def test_control_w_closes_the_window_and_the_dialog(self):
        program = self.open()
        program.press("ctrl+w")
        self.expect_end(program)
        self.expect(lambda: self.portal.closed == 1, "the dialog stays open")

    def test_a_stopped_portal_does_not_prevent_closing_the_window(self):
        self.finish(self.open(stopped=True))

    def test_a_request_to_a_stopped_portal_can_be_cancelled(self):
        program = self.open(stopped=True)
        program.click_here(program.find("push button", "Cancel"))
        self.expect(lambda: self.choose_button(program).has("enabled"), "the page stays disabled")
        program.expect_no_dialog()
        self.finish(program)
