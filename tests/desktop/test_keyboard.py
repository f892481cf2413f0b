"""The whole program by keyboard alone."""

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

    def test_the_arrow_keys_walk_through_the_pages(self):
        program = self.start()
        program.focus("list", "Sections")
        for page in program.pages()[1:]:
            program.press("Down")
            program.find("panel", page)

    def test_tab_comes_round_and_shift_tab_goes_the_same_way_back(self):
        program = self.start()
        there = self.tour(program, "Tab")
        back = self.tour(program, "shift+Tab")
        self.assertGreater(len(there), 4)
        self.assertEqual(there[1:], list(reversed(back[1:])))

    def tour(self, program, key):
        """The names of all controls from the focused one round to it again."""
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
