"""How the program starts, hands over to a running one, restores the frame of its window, and ends."""

import itertools
import pathlib
import signal
import socket

from gi.repository import Gio, GLib
from harness.case import DesktopCase

DEFAULT_SIZE = (860, 640)
MINIMUM_SIZE = (780, 540)
FRAME_FILE = ".local/state/vantle-settings/window"


class Starting(DesktopCase):
    def test_the_window_is_centred_and_has_the_default_size(self):
        x, y, width, height = self.start().window.box
        self.assertEqual((width, height), DEFAULT_SIZE)
        screen = self.desktop.size
        self.assertAlmostEqual(x + width / 2, screen[0] / 2, delta=12)
        self.assertAlmostEqual(y + height / 2, screen[1] / 2, delta=24)

    def test_the_window_has_icons_in_several_sizes(self):
        window = self.start().window
        sizes = [16, 24, 32, 48, 64, 128]
        self.expect(lambda: sorted(window.icons) == [(size, size) for size in sizes],
                    lambda: f"the icons have the sizes {window.icons}")

    def test_the_window_names_its_desktop_entry_and_requests_a_dark_frame(self):
        window = self.start().window
        entry = pathlib.Path(__file__).parents[2] / "packaging/linux/com.vantle.settings.desktop"
        self.assertIn(f"StartupWMClass={window.program}", entry.read_text().splitlines())
        self.assertEqual((window.variant, window.colours), ("dark", ""))

    def test_the_window_requests_kwins_dark_colours_if_they_are_installed(self):
        colours = ".local/share/color-schemes/BreezeDark.colors"
        self.write(colours, "")
        window = self.start().window
        self.assertEqual((window.variant, window.colours), ("dark", str(self.home / colours)))

    def test_a_dialog_requests_a_dark_frame_too(self):
        program = self.start()
        program.show("Data & Privacy")
        program.click("push button", "Clear Sessions…")
        program.dialog("Clear all sessions?")
        self.assertEqual([window.variant for window in self.desktop.windows.of(program.process)], ["dark"] * 2)

    def test_the_command_line_is_ignored(self):
        program = self.start(arguments=["--style", "fusion", "-geometry", "400x300+0+0", "--platform", "offscreen",
                                        "-reverse", "-stylesheet", "none.qss"])
        self.assertEqual(program.window.box[2:], DEFAULT_SIZE)
        self.finish(program)

    def test_starting_writes_nothing_and_sends_no_request(self):
        self.finish(self.start())
        self.assertFalse((self.home / ".vantle").exists())
        self.assertFalse((self.home / ".claude").exists())
        self.assertEqual(self.agent.requests, [])

    def test_the_start_does_not_wait_for_a_session_bus_that_never_answers(self):
        path = self.home / "bus"
        with socket.socket(socket.AF_UNIX) as silent:
            silent.bind(str(path))
            silent.listen()
            program = self.launch(environment={"DBUS_SESSION_BUS_ADDRESS": f"unix:path={path}"})
            program.window.close()
            self.expect_end(program)


class OneAtATime(DesktopCase):
    """The program is started while it is already running."""

    def start_minimised(self, **options):
        program = self.launch(**options)
        window = program.window
        self.expect(lambda: self.desktop.windows.active == window.identifier, "the window is not active")
        program.press("ctrl+m")
        self.expect(lambda: window.minimised, "the window is not minimised")
        return program

    def expect_handed_over(self, first, **options):
        second = self.launch(**options)
        self.expect_end(second)
        self.expect(lambda: not first.window.minimised, "the first window stays minimised")
        self.expect(lambda: self.desktop.windows.active == first.window.identifier, "the first window is not active")

    def test_a_second_start_restores_the_minimised_window_and_its_page(self):
        first = self.start()
        first.show("Planning")
        first.press("ctrl+m")
        self.expect(lambda: first.window.minimised, "the window is not minimised")
        self.expect_handed_over(first)
        first.ready().find("panel", "Planning")
        self.finish(first)

    def test_a_second_start_raises_the_window_above_those_of_other_programs(self):
        first = self.start()
        first_home = self.home
        self.use_new_home()
        other = self.start()
        self.home = first_home
        self.expect_handed_over(first, environment={"DESKTOP_STARTUP_ID": "launcher_TIME4711"})
        self.finish(first)
        self.finish(other)

    def test_a_second_start_activates_the_open_dialog(self):
        first = self.start()
        first.show("Data & Privacy")
        first.click("push button", "Clear Sessions…")
        dialog = first.dialog("Clear all sessions?")
        first_home = self.home
        self.use_new_home()
        self.start()
        self.home = first_home
        self.expect_end(self.launch())
        self.expect(lambda: dialog.has("active"), "the dialog is not active")
        first.press("Escape")

    def test_with_another_home_a_second_program_runs_beside_the_first(self):
        first = self.start()
        self.use_new_home()
        second = self.start()
        second.pick("Typeface", "System (SF Pro)")
        self.expect_file(".vantle/typeface.json", '{\n  "name" : "system"\n}')
        self.finish(first)
        self.finish(second)

    def test_a_desktop_can_activate_the_window_over_the_session_bus(self):
        first = self.start_minimised()
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        arguments = GLib.Variant("(a{sv})", ({"desktop-startup-id": GLib.Variant("s", "launcher_TIME4711")},))
        session.call_sync("com.vantle.settings", "/com/vantle/settings", "org.freedesktop.Application", "Activate",
                          arguments, None, Gio.DBusCallFlags.NO_AUTO_START, 20000)
        self.expect(lambda: not first.window.minimised, "the window stays minimised")
        self.finish(first)

    def test_a_program_that_hangs_does_not_prevent_another_from_starting(self):
        first = self.start()
        first.signal(signal.SIGSTOP)
        try:
            second = self.launch()
            second.window.close()
            self.expect_end(second)
        finally:
            first.signal(signal.SIGCONT)
        self.finish(first)

    def without_a_bus(self):
        folder = self.home / "runtime"
        folder.mkdir(mode=0o700)
        return {"environment": {"DBUS_SESSION_BUS_ADDRESS": f"unix:path={folder}/bus", "XDG_RUNTIME_DIR": str(folder)}}

    def test_without_a_session_bus_a_second_start_restores_the_window_too(self):
        options = self.without_a_bus()
        first = self.start_minimised(**options)
        self.expect_handed_over(first, **options)
        first.window.close()
        self.expect_end(first)
        self.assertEqual(list((self.home / "runtime").iterdir()), [])

    def test_without_a_session_bus_the_lock_of_a_killed_program_is_taken_over(self):
        options = self.without_a_bus()
        first = self.launch(**options)
        first.window
        first.signal(signal.SIGKILL)
        first.wait()
        second = self.launch(**options)
        second.window.close()
        self.expect_end(second)

    def test_without_a_session_bus_a_program_that_hangs_does_not_prevent_another_from_starting(self):
        options = self.without_a_bus()
        first = self.launch(**options)
        first.window
        first.signal(signal.SIGSTOP)
        try:
            second = self.launch(**options)
            second.window.close()
            self.expect_end(second)
        finally:
            first.signal(signal.SIGCONT)


class Resizing(DesktopCase):
    def test_the_frame_is_restored_after_the_program_was_killed(self):
        first = self.start()
        first.window.move_resize(140, 160, 900, 700)
        self.expect_file(FRAME_FILE, "VantleSettingsWindow=900x700+140+160\n")
        first.signal(signal.SIGKILL)
        first.wait()
        self.expect_at(140, 160, 900, 700)

    def test_the_frame_is_restored_after_the_x_server_was_killed(self):
        screen = self.desktop.another_screen()
        self.addCleanup(screen.close)
        first = self.launch(environment={"DISPLAY": screen.name})
        window = self.expect(lambda: screen.windows.of(first.process), "the window does not appear")[0]
        window.move_resize(140, 160, 900, 700)
        self.expect_file(FRAME_FILE, "VantleSettingsWindow=900x700+140+160\n")
        screen.kill()
        self.assertNotEqual(first.wait(), 0)
        self.expect_at(140, 160, 900, 700)

    def expect_at(self, *box):
        window = self.start().window
        self.expect(lambda: window.box == box, lambda: f"the window is at {window.box} instead of {box}")

    def test_the_window_never_gets_smaller_than_its_minimum_size(self):
        window = self.start().window
        self.assertEqual(window.minimum, MINIMUM_SIZE)
        window.move_resize(100, 100, 300, 200)
        self.expect(lambda: window.box[2:] == MINIMUM_SIZE, lambda: f"the window is at {window.box}")

    def test_the_frame_is_restored_after_closing(self):
        first = self.start()
        first.window.move_resize(140, 160, 900, 700)
        self.expect(lambda: first.window.box == (140, 160, 900, 700), lambda: f"the window is at {first.window.box}")
        self.finish(first)
        second = self.start()
        self.expect(lambda: second.window.box == (140, 160, 900, 700), lambda: f"the window is at {second.window.box}")
        self.finish(second)

    def test_dragging_the_pages_margin_moves_the_window(self):
        self.drag_from(230, -40)

    def test_dragging_the_space_below_the_sidebars_entries_moves_the_window(self):
        self.drag_from(60, -40)

    def drag_from(self, right, down):
        window = self.start().window
        x, y, width, height = window.box
        pointer, start = self.desktop.input, (x + right, y + height + down)
        pointer.move(*start)
        pointer.button(True)
        steps = itertools.count(1)

        def drag_on():
            pointer.move(start[0] + next(steps) % 200, start[1])
            return window.box != (x, y, width, height)
        self.expect(drag_on, "the window does not follow the mouse")
        pointer.move(start[0] + 300, start[1] + 100)
        self.expect(lambda: window.box[0] > x + 150 and window.box[1] > y + 50,
                    lambda: f"the window is at {window.box}")
        pointer.button(False)
        self.assertEqual(window.box[2:], (width, height))

    def test_a_minimised_window_comes_back_with_its_page(self):
        program = self.start()
        program.show("Planning")
        program.press("ctrl+m")
        self.expect(lambda: program.window.minimised and not program.root.find("frame", showing=False).has("active"),
                    "the window is not minimised")
        program.window.activate()
        self.expect(lambda: not program.window.minimised, "the window stays minimised")
        program.ready().find("panel", "Planning")


class Ending(DesktopCase):
    def test_by_the_frames_button(self):
        program = self.start()
        self.desktop.input.click(*program.window.close_button())
        self.expect_end(program)

    def test_by_the_window_menu(self):
        program = self.start()
        program.choose("Window", "Close")
        self.expect_end(program)

    def test_by_the_application_menu(self):
        program = self.start()
        program.choose("Vantle Settings", "Quit Vantle Settings")
        self.expect_end(program)

    def test_by_control_w(self):
        program = self.start()
        program.press("ctrl+w")
        self.expect_end(program)

    def test_by_control_q(self):
        program = self.start()
        program.press("ctrl+q")
        self.expect_end(program)

    def test_by_sigterm_with_the_frame_saved(self):
        self.end_by(signal.SIGTERM)

    def test_by_sigint_with_the_frame_saved(self):
        self.end_by(signal.SIGINT)

    def test_by_sighup_with_the_frame_saved(self):
        self.end_by(signal.SIGHUP)

    def end_by(self, number):
        program = self.start()
        program.window.move_resize(50, 70, 800, 600)
        self.expect(lambda: program.window.box == (50, 70, 800, 600), lambda: f"the window is at {program.window.box}")
        program.signal(number)
        self.expect_end(program)
        self.expect_file(FRAME_FILE, "VantleSettingsWindow=800x600+50+70\n")
