"""The program under a Wayland compositor: it starts, shows its pages, and ends. The compositor has neither keyboard
nor mouse, so controls are used through the accessibility bus."""

import os
import signal
import subprocess
import threading

from harness import processes
from harness.case import DesktopCase
from harness.portal import FilePortal
from harness.program import Program
from harness.waiting import eventually


class Wayland(DesktopCase):
    SOCKET = "vantle-test"

    @classmethod
    def setUpClass(cls):
        log = open(cls.desktop.folder / "compositor.log", "wb")
        cls.compositor = processes.start(
            ["weston", "--backend=headless-backend.so", "--use-pixman", "--no-config", "--idle-time=0",
             "--width=1280", "--height=900", f"--socket={cls.SOCKET}"],
            stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        log.close()
        socket = os.path.join(os.environ["XDG_RUNTIME_DIR"], cls.SOCKET)
        eventually(lambda: os.path.exists(socket), "the compositor does not start")

    @classmethod
    def tearDownClass(cls):
        processes.end(cls.compositor)

    def start(self, **environment):
        # The Wayland client library, and plugins that are unloaded at the end, leak a few hundred bytes whose stacks
        # have no symbols left by then. The tests under X11 check for leaks.
        program = Program(self.desktop, self.home, environment={
            "WAYLAND_DISPLAY": self.SOCKET, "DISPLAY": "", "ASAN_OPTIONS": "detect_leaks=0",
            **environment})
        self.addCleanup(program.kill)
        program.find("list", "Sections")
        self.assertEqual(self.desktop.windows.of(program.process), [])
        return program

    def test_the_program_starts_shows_every_page_and_closes(self):
        program = self.start()
        for page in program.pages():
            program.find("list", "Sections").find("list item", page).act()
            program.find("panel", page)
        program.find_in_menu("Window", "Close").act()
        self.expect_end(program)
        # Wayland does not tell a client the position of its window.
        self.expect_file(".local/state/vantle-settings/window", "VantleSettingsWindow=860x640\n")

    def test_a_change_is_written_and_announced(self):
        program = self.start()
        program.find("check box", "Marketing Recording Mode").act()
        self.expect_file(".vantle/green-screen.json", '{\n  "enabled" : true\n}')
        self.expect_requests("/settings/reload-green-screen")
        program.find_in_menu("Vantle Settings", "Quit Vantle Settings").act()
        self.expect_end(program)

    def test_without_a_keyboard_keys_show_as_in_the_keymap_librarys_default_layout(self):
        self.write(".vantle/shortcuts.json", '{"focusLast":{"keyCode":16,"modifiers":256}}')
        program = self.start(XKB_DEFAULT_LAYOUT="de")
        recorder = program.find("push button", "Focus next notification shortcut")
        self.expect(lambda: recorder.description.startswith("Command Z"),
                    lambda: f"the description is {recorder.description!r}")

    def test_a_screen_reader_can_open_and_cancel_the_portals_dialog(self):
        portal = FilePortal()
        self.addCleanup(portal.close)
        program = self.start()
        program.find("list", "Sections").find("list item", "Planning").act()
        choose = program.find("push button", "Choose planning root…")
        threading.Thread(target=choose.act, daemon=True).start()  # returns when the dialog has ended
        program.find("panel", "Planning Project Folder").find("push button", "Cancel").act()
        self.expect(lambda: portal.closed == 1, "the dialog stays open")
        # Under this compositor the program cannot name the dialog's parent window.
        self.assertEqual(portal.parents, [""])
        program.find_in_menu("Window", "Close").act()
        self.expect_end(program)

    def test_sigterm_ends_the_program(self):
        program = self.start()
        program.signal(signal.SIGTERM)
        self.expect_end(program)
