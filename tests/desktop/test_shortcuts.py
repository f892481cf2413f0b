"""The keyboard shortcuts of the General page, pressed on a real keyboard."""

from harness.case import DesktopCase

FILE = ".vantle/shortcuts.json"
DEFAULTS = {"focusLast": (38, 768), "focusPrevious": (40, 768), "openPlan": (37, 768)}
RELOAD = "/settings/reload-shortcuts"
RECORDER = "Focus next notification shortcut"


def file_of(**changes):
    """The file with the default bindings and these changes."""
    members = [f'  "{action}" : {{\n    "keyCode" : {key},\n    "modifiers" : {modifiers}\n  }}'
               for action, (key, modifiers) in sorted({**DEFAULTS, **changes}.items())]
    return "{\n" + ",\n".join(members) + "\n}"


class Recording(DesktopCase):
    def record(self):
        """Starts a recording and waits for its announcement, the last event that the start causes."""
        program = self.start()
        announced = self.desktop.accessibility.announced
        announced.clear()
        recorder = program.click("push button", RECORDER)
        self.expect(lambda: "Press shortcut…" in announced, lambda: f"“Press shortcut…” is not in {announced}")
        self.assertEqual(recorder.description, "Press shortcut…")
        return program, recorder

    def test_a_combination_is_recorded_shown_written_and_announced_to_the_agent(self):
        program, recorder = self.record()
        program.press("alt+shift+p")
        self.expect_file(FILE, file_of(focusLast=(35, 0x0A00)))
        self.expect_requests(RELOAD)
        self.expect_description(recorder, "Option Shift P")

    def test_assistive_technology_gets_an_announcement_and_a_change_of_the_recorder_alone(self):
        program, recorder = self.record()
        bus = self.desktop.accessibility
        bus.changed.clear()
        program.press("alt+shift+p")
        self.expect(lambda: "Option Shift P" in bus.announced,
                    lambda: f"“Option Shift P” is not in {bus.announced}")
        self.expect(lambda: recorder in bus.changed, "no property change of the recorder is reported")
        self.assertEqual([control for control in bus.changed if control.role != "notification"], [recorder])

    def test_shortcuts_of_the_menus_are_recorded_and_not_triggered(self):
        program, recorder = self.record()
        program.press("ctrl+w")
        self.expect_file(FILE, file_of(focusLast=(13, 0x1000)))
        self.expect_description(recorder, "Control W")
        self.finish(program)

    def test_a_key_alone_or_with_shift_changes_nothing_and_escape_ends_the_recording(self):
        program, recorder = self.record()
        program.press("j", "shift+j", "Tab", "space")
        self.assertEqual(recorder.description, "Press shortcut…")
        program.press("Escape")
        self.expect_description(recorder, "Shift Command J")
        self.finish(program)
        self.expect_no_file(FILE)
        self.assertEqual(self.agent.requests, [])

    def test_a_second_click_ends_the_recording(self):
        program, recorder = self.record()
        program.click_on(recorder)
        self.expect_description(recorder, "Shift Command J")
        self.expect_no_file(FILE)

    def test_leaving_the_page_ends_the_recording(self):
        program, recorder = self.record()
        program.show("About")
        program.press("ctrl+w")
        self.expect_end(program)
        self.expect_no_file(FILE)


class Resetting(DesktopCase):
    def setUp(self):
        super().setUp()
        self.write(FILE, file_of(focusPrevious=(1, 256)))

    def test_one_shortcut(self):
        program = self.start()
        program.click("push button", "Reset Focus previous notification to default (⇧⌘K)")
        self.expect_file(FILE, file_of())
        self.expect_requests(RELOAD)

    def test_all_shortcuts_write_and_announce_once_for_each(self):
        program = self.start()
        program.click("push button", "Reset all shortcuts")
        self.expect_file(FILE, file_of())
        self.expect_requests(RELOAD, RELOAD, RELOAD)
