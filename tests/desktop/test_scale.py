"""The window at other scale factors."""

from harness.case import DesktopCase


class Scale:
    def test_controls_react_where_they_are_drawn(self):
        program = self.start(scale=self.FACTOR)
        self.assertEqual(program.window.box[2:], (860 * self.FACTOR, 640 * self.FACTOR))
        program.pick("Terminal", "Vantle Terminal")
        self.expect_file(".vantle/terminal-backend.json", '{\n  "backend" : "vantle-term"\n}')
        program.click("check box", "Automatic Updates")
        self.expect_file(".vantle/updates.json", '{\n  "automatic" : false\n}')
        for page in program.pages():
            program.show(page)
        self.finish(program)


class OneAndAHalf(Scale, DesktopCase):
    FACTOR = 1.5


class Two(Scale, DesktopCase):
    FACTOR = 2
