"""The program prints nothing when a service that the toolkit uses is busy or ends."""

import os
import signal

from harness.case import DesktopCase


class Helpers(DesktopCase):
    def test_a_key_is_not_lost_when_the_accessibility_registry_ends_while_handling_it(self):
        accessibility = self.desktop.accessibility
        program = self.start()
        window = program.window
        count_offers = accessibility.watch("NotifyListenersSync")
        # When a monitor connects, the registry reports that a listener has gone, and the toolkit waits for the registry
        # to list the remaining ones. It no longer waits once the Tab keys that follow have been handled.
        program.focus("check box", "Marketing Recording Mode")
        registry = accessibility.process("org.a11y.atspi.Registry")
        os.kill(registry, signal.SIGSTOP)
        program.press("space")
        self.expect(lambda: count_offers('string "space"'), "the toolkit does not offer the key to the registry")
        os.kill(registry, signal.SIGKILL)
        self.expect_file(".vantle/green-screen.json", '{\n  "enabled" : true\n}')
        window.close()
        self.expect_end(program)
