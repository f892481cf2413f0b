"""What the program says when those who help the toolkit are busy or end: nothing."""

import os
import signal

from harness.case import DesktopCase


class Helpers(DesktopCase):
    def test_a_registry_of_screen_readers_that_ends_while_it_has_a_key_takes_none_away(self):
        accessibility = self.desktop.accessibility
        program = self.start()
        window = program.window
        offered = accessibility.watch("NotifyListenersSync")
        # While somebody begins to watch, the registry tells of one listener less, and the toolkit asks it which are left,
        # and waits. That is over when the keys below have been answered.
        program.focus("check box", "Marketing Recording Mode")
        registry = accessibility.process("org.a11y.atspi.Registry")
        os.kill(registry, signal.SIGSTOP)
        program.press("space")
        self.expect(lambda: offered('string "space"'), "the toolkit does not offer the key")
        os.kill(registry, signal.SIGKILL)
        self.expect_file(".vantle/green-screen.json", '{\n  "enabled" : true\n}')
        window.close()
        self.expect_end(program)
