"""How the program starts, is resized, comes back where it was, and ends."""

import itertools
import pathlib
import signal
import socket

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
        self.assertEqual(window.variant, "dark")

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

    def test_two_at_once_both_work_and_the_last_write_wins(self):
        first, second = self.start(), self.start()
        second.pick("Typeface", "System (SF Pro)")
        self.expect_file(".vantle/typeface.json", '{\n  "name" : "system"\n}')
        first.window.activate()
        first.ready().pick("Terminal", "Vantle Terminal")
        self.expect_file(".vantle/terminal-backend.json", '{\n  "backend" : "vantle-term"\n}')
        self.finish(first)
        self.finish(second)


class Resizing(DesktopCase):
    def test_the_window_never_gets_smaller_than_its_least_size(self):
        window = self.start().window
        self.assertEqual(window.minimum, LEAST_SIZE)
        window.place(100, 100, 300, 200)
        self.expect(lambda: window.box[2:] == LEAST_SIZE, lambda: f"the window is {window.box}")

    def test_it_comes_back_where_it_was_left(self):
        first = self.start()
        first.window.place(140, 160, 900, 700)
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
        hands, start = self.desktop.hands, (x + right, y + height + down)
        hands.move(*start)
        hands.button(True)
        steps = itertools.count(1)

        def drag_on():
            hands.move(start[0] + next(steps) % 200, start[1])
            return window.box != (x, y, width, height)
        self.expect(drag_on, "it does not follow the mouse")
        hands.move(start[0] + 300, start[1] + 100)
        self.expect(lambda: window.box[0] > x + 150 and window.box[1] > y + 50, lambda: f"it is at {window.box}")
        hands.button(False)
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
        self.desktop.hands.click(*program.window.close_button())
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
        program.window.place(50, 70, 800, 600)
        self.expect(lambda: program.window.box == (50, 70, 800, 600))
        program.signal(number)
        self.expect_end(program)
        self.expect_file(FRAME_FILE, "VantleSettingsWindow=800x600+50+70\n")
