"""The program used by keyboard alone."""

from harness.case import DesktopCase


class Keyboard(DesktopCase):
    def test_space_flips_a_switch(self):
        program = self.start()
        program.focus("check box", "Marketing Recording Mode")
        program.press("space")
        self.expect_file(".vantle/green-screen.json", '{\n  "enabled" : true\n}')
        self.expect_requests("/settings/reload-green-screen")

    def test_the_arrow_keys_choose_a_pickers_entry(self):
        program = self.start()
        program.focus("combo box", "Terminal")
        program.press("Down")
        self.expect_file(".vantle/terminal-backend.json", '{\n  "backend" : "vantle-term"\n}')
        program.press("Up")
        self.expect_file(".vantle/terminal-backend.json", '{\n  "backend" : "iterm"\n}')

    def test_the_arrow_keys_go_through_the_pages(self):
        program = self.start()
        program.focus("list", "Sections")
        for page in program.pages()[1:]:
            program.press("Down")
            program.find("panel", page)

    def test_tab_cycles_through_the_controls_and_shift_tab_in_reverse(self):
        program = self.start()
        forwards = self.tour(program, "Tab")
        backwards = self.tour(program, "shift+Tab")
        self.assertGreater(len(forwards), 4)
        self.assertEqual(forwards[1:], list(reversed(backwards[1:])))

    def tour(self, program, key):
        """Role, name and labels of each control that the key reaches, from the focused one until the focus is back on
        it."""
        first = program.focused()
        names, current = [], first
        while not names or current != first:
            names.append(f"{current.role} {current.name} {current.labels}")
            self.assertLess(len(names), 100, "the tour does not end")
            program.press(key)
            before = current
            self.expect(lambda: program.focused() not in (before, None), f"{key} does not leave {before}")
            current = program.focused()
        return names
