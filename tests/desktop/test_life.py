"""How the program starts, is resized, comes back where it was, and ends."""

import itertools
import pathlib
import signal
import socket

from gi.repository import Gio, GLib
from harness.case import DesktopCase

DEFAULT_SIZE = (860, 640)
LEAST_SIZE = (780, 540)
FRAME_FILE = ".local/state/vantle-settings/window"


class Starting(DesktopCase):
    def test_the_window_is_centred_and_of_the_first_size(self):
        x, y, width, height = self.start().window.box
        self.assertEqual((width, height), DEFAULT_SIZE)
        screen = self.desktop.size
        self.assertAlmostEqual(x + width / 2, screen[0] / 2, delta=12)
        self.assertAlmostEqual(y + height / 2, screen[1] / 2, delta=24)

    def test_task_lists_get_its_icon_in_several_sizes(self):
        window = self.start().window
        sizes = [16, 24, 32, 48, 64, 128]
        self.expect(lambda: sorted(window.icons) == [(size, size) for size in sizes], lambda: f"{window.icons}")

    def test_it_says_which_entry_it_is_of_and_asks_for_a_dark_frame(self):
        window = self.start().window
        entry = pathlib.Path(__file__).parents[2] / "packaging/linux/com.vantle.settings.desktop"
        self.assertIn(f"StartupWMClass={window.program}", entry.read_text().splitlines())
        self.assertEqual((window.variant, window.colours), ("dark", ""))

    def test_where_kwins_dark_colours_are_installed_it_asks_for_a_frame_in_them(self):
        colours = ".local/share/color-schemes/BreezeDark.colors"
        self.write(colours, "")
        window = self.start().window
        self.assertEqual((window.variant, window.colours), ("dark", str(self.home / colours)))

    def test_the_frame_of_a_dialog_is_asked_to_be_dark_too(self):
        program = self.start()
        program.show("Data & Privacy")
        program.click("push button", "Clear Sessions…")
        program.dialog("Clear all sessions?")
        self.assertEqual([window.variant for window in self.desktop.windows.of(program.process)], ["dark"] * 2)

    def test_nothing_is_taken_from_the_command_line(self):
        program = self.start(arguments=["--style", "fusion", "-geometry", "400x300+0+0", "--platform", "offscreen",
                                        "-reverse", "-stylesheet", "none.qss"])
        self.assertEqual(program.window.box[2:], DEFAULT_SIZE)
        self.finish(program)

    def test_starting_writes_nothing_and_tells_nobody(self):
        self.finish(self.start())
        self.assertFalse((self.home / ".vantle").exists())
        self.assertFalse((self.home / ".claude").exists())
        self.assertEqual(self.agent.requests, [])

    def test_a_session_bus_that_never_answers_is_not_waited_for(self):
        path = self.home / "bus"
        with socket.socket(socket.AF_UNIX) as silent:
            silent.bind(str(path))
            silent.listen()
            program = self.launch(environment={"DBUS_SESSION_BUS_ADDRESS": f"unix:path={path}"})
            program.window.close()
            self.expect_end(program)


class OneAtATime(DesktopCase):
    """A program that is started while it runs already."""

    def minimised(self, **options):
        program = self.launch(**options)
        window = program.window
        self.expect(lambda: self.desktop.windows.active == window.identifier, "the window is not active")
        program.press("ctrl+m")
        self.expect(lambda: window.minimised, "it is not minimised")
        return program

    def expect_handed_over(self, first, **options):
        second = self.launch(**options)
        self.expect_end(second)
        self.expect(lambda: not first.window.minimised, "the first window stays minimised")
        self.expect(lambda: self.desktop.windows.active == first.window.identifier, "the first window is not active")

    def test_the_minimised_window_comes_back_with_its_page(self):
        first = self.start()
        first.show("Planning")
        first.press("ctrl+m")
        self.expect(lambda: first.window.minimised, "it is not minimised")
        self.expect_handed_over(first)
        first.ready().find("panel", "Planning")
        self.finish(first)

    def test_the_window_comes_before_those_of_others(self):
        first = self.start()
        mine = self.home
        self.another_home()
        other = self.start()
        self.home = mine
        self.expect_handed_over(first, environment={"DESKTOP_STARTUP_ID": "launcher_TIME4711"})
        self.finish(first)
        self.finish(other)

    def test_a_dialog_that_waits_for_an_answer_gets_the_keyboard_again(self):
        first = self.start()
        first.show("Data & Privacy")
        first.click("push button", "Clear Sessions…")
        dialog = first.dialog("Clear all sessions?")
        mine = self.home
        self.another_home()
        self.start()
        self.home = mine
        self.expect_end(self.launch())
        self.expect(lambda: dialog.has("active"), "the dialog does not get the keyboard")
        first.press("Escape")

    def test_another_home_is_another_program(self):
        first = self.start()
        self.another_home()
        second = self.start()
        second.pick("Typeface", "System (SF Pro)")
        self.expect_file(".vantle/typeface.json", '{\n  "name" : "system"\n}')
        self.finish(first)
        self.finish(second)

    def test_a_desktop_can_ask_for_it_under_the_name_of_its_entry(self):
        first = self.minimised()
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        asked = GLib.Variant("(a{sv})", ({"desktop-startup-id": GLib.Variant("s", "launcher_TIME4711")},))
        session.call_sync("com.vantle.settings", "/com/vantle/settings", "org.freedesktop.Application", "Activate", asked,
                          None, Gio.DBusCallFlags.NO_AUTO_START, 20000)
        self.expect(lambda: not first.window.minimised, "it does not come back")
        self.finish(first)

    def test_one_that_hangs_keeps_nobody_from_starting(self):
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

    def test_without_a_session_bus_the_window_comes_back_too(self):
        alone = self.without_a_bus()
        first = self.minimised(**alone)
        self.expect_handed_over(first, **alone)
        first.window.close()
        self.expect_end(first)
        self.assertEqual(list((self.home / "runtime").iterdir()), [])

    def test_without_a_session_bus_the_lock_of_one_that_was_killed_is_taken_over(self):
        alone = self.without_a_bus()
        first = self.launch(**alone)
        first.window
        first.signal(signal.SIGKILL)
        first.ended()
        second = self.launch(**alone)
        second.window.close()
        self.expect_end(second)

    def test_without_a_session_bus_one_that_hangs_keeps_nobody_from_starting(self):
        alone = self.without_a_bus()
        first = self.launch(**alone)
        first.window
        first.signal(signal.SIGSTOP)
        try:
            second = self.launch(**alone)
            second.window.close()
            self.expect_end(second)
        finally:
            first.signal(signal.SIGCONT)


class Resizing(DesktopCase):
    def test_a_killed_program_comes_back_where_it_was_put(self):
        first = self.start()
        first.window.move_resize(140, 160, 900, 700)
        self.expect_file(FRAME_FILE, "VantleSettingsWindow=900x700+140+160\n")
        first.signal(signal.SIGKILL)
        first.ended()
        self.expect_at(140, 160, 900, 700)

    def test_a_program_that_loses_its_screen_comes_back_where_it_was_put(self):
        screen = self.desktop.another_screen()
        self.addCleanup(screen.close)
        first = self.launch(environment={"DISPLAY": screen.name})
        window = self.expect(lambda: screen.windows.of(first.process), "the window does not appear")[0]
        window.move_resize(140, 160, 900, 700)
        self.expect_file(FRAME_FILE, "VantleSettingsWindow=900x700+140+160\n")
        screen.break_down()
        self.assertNotEqual(first.ended(), 0)
        self.expect_at(140, 160, 900, 700)

    def expect_at(self, *box):
        window = self.start().window
        self.expect(lambda: window.box == box, lambda: f"it is at {window.box}")

    def test_the_window_never_gets_smaller_than_its_least_size(self):
        window = self.start().window
        self.assertEqual(window.minimum, LEAST_SIZE)
        window.move_resize(100, 100, 300, 200)
        self.expect(lambda: window.box[2:] == LEAST_SIZE, lambda: f"the window is {window.box}")

    def test_it_comes_back_where_it_was_left(self):
        first = self.start()
        first.window.move_resize(140, 160, 900, 700)
        self.expect(lambda: first.window.box == (140, 160, 900, 700), lambda: f"it is at {first.window.box}")
        self.finish(first)
        second = self.start()
        self.expect(lambda: second.window.box == (140, 160, 900, 700), lambda: f"it is at {second.window.box}")
        self.finish(second)

    def test_dragging_the_pages_margin_moves_it(self):
        self.drag_from(230, -40)

    def test_dragging_the_space_below_the_sidebars_entries_moves_it(self):
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
        self.expect(drag_on, "it does not follow the mouse")
        pointer.move(start[0] + 300, start[1] + 100)
        self.expect(lambda: window.box[0] > x + 150 and window.box[1] > y + 50, lambda: f"it is at {window.box}")
        pointer.button(False)
        self.assertEqual(window.box[2:], (width, height))

    def test_minimised_it_comes_back_with_its_page(self):
        program = self.start()
        program.show("Planning")
        program.press("ctrl+m")
        self.expect(lambda: program.window.minimised and not program.root.find("frame", showing=False).has("active"),
                    "it is not minimised")
        program.window.activate()
        self.expect(lambda: not program.window.minimised, "it does not come back")
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

    def test_by_termination_with_the_frame_saved(self):
        self.end_by(signal.SIGTERM)

    def test_by_interruption_with_the_frame_saved(self):
        self.end_by(signal.SIGINT)

    def test_by_the_end_of_its_terminal_with_the_frame_saved(self):
        self.end_by(signal.SIGHUP)

    def end_by(self, number):
        program = self.start()
        program.window.move_resize(50, 70, 800, 600)
        self.expect(lambda: program.window.box == (50, 70, 800, 600))
        program.signal(number)
        self.expect_end(program)
        self.expect_file(FRAME_FILE, "VantleSettingsWindow=800x600+50+70\n")
