"""The running program, and what a user does with it."""

import os
import pathlib
import signal
import subprocess

from . import processes
from .waiting import SECONDS, eventually, eventually_one

WINDOW = "Vantle Settings"

_LEAKS = pathlib.Path(__file__).resolve().parent.parent / "leaks.txt"


class Program:
    """The program, running with a home directory. `scale` is the scale factor of its screen, `tool` a command such as
    `strace -D` that runs the program with the process id of the command, and `folder` the working directory, by default
    the home."""

    def __init__(self, desktop, home, scale=1, arguments=(), environment=None, tool=(), folder=None):
        self._desktop = desktop
        self._scale = scale
        self.home = home
        variables = dict(os.environ, HOME=str(home), QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                         LSAN_OPTIONS=f"suppressions={_LEAKS}:print_suppressions=0")
        if scale != 1:
            variables["QT_SCALE_FACTOR"] = str(scale)
        variables.update(environment or {})
        self._output = open(home.parent / f"{home.name}.output", "w+b")
        self._process = processes.start([*tool, desktop.program, *arguments], env=variables,
                                        cwd=folder or home,
                                        stdin=subprocess.DEVNULL, stdout=self._output, stderr=self._output)
        self.process = self._process.pid

    # Windows and controls

    @property
    def root(self):
        return eventually(lambda: self._running() and self._desktop.accessibility.program(self.process),
                          "the program does not appear on the accessibility bus")

    @property
    def frame(self):
        """The settings window on the accessibility bus. It is a child of the program, so no page is searched."""
        return eventually_one(
            lambda: [child for child in self.root.children
                     if child.role == "frame" and child.name == WINDOW and child.has("showing")],
            "the window does not appear on the accessibility bus")

    @property
    def window(self):
        """The settings window as the window manager sees it."""
        return eventually_one(
            lambda: self._running() and [window for window in self._desktop.windows.of(self.process)
                                         if window.title == WINDOW],
            "the window does not appear")

    def shows(self, role, name):
        return any(control.has("showing") for control in self.root.find_all(role, name))

    def last_focused(self, name=None):
        """The control that last reported the focus; with a name, None if the control has another one."""
        control = self._desktop.accessibility.last_focused
        return control if name is None or control and control.name == name else None

    def find(self, role, name=None):
        return self.root.find(role, name)

    @property
    def output(self):
        """Everything that the program has written to its standard output and error."""
        self._output.seek(0)
        return self._output.read().decode(errors="replace")

    # User input

    def ready(self):
        """Waits until the window shows its sidebar and is active."""
        self.find("list", "Sections")
        eventually(lambda: self.frame.has("active") and self._desktop.windows.active == self.window.identifier,
                   "the window is not active")
        return self

    def press(self, *strokes):
        self._desktop.input.press(*strokes)

    def type(self, text):
        self._desktop.input.type(text)

    def middle(self, control):
        """The pixel in the middle of a control, once the control has stopped moving."""
        x, y, width, height = self._settled_box(control)
        return (x + width / 2) * self._scale, (y + height / 2) * self._scale

    def reveal(self, control):
        """Scrolls with the wheel until the control is inside the window."""
        frame_x, frame_y, frame_width, frame_height = self.frame.box
        while True:
            _, y, width, height = before = self._settled_box(control)
            below = y + height - (frame_y + frame_height - 8)
            above = frame_y + 24 - y
            if below <= 0 and above <= 0 or height > frame_height:
                return control
            point = (frame_x + frame_width * 0.4) * self._scale, (frame_y + frame_height / 2) * self._scale
            self._desktop.input.scroll(*point, 1 if above > 0 else -1)
            eventually(lambda: control.box != before, f"the wheel does not move {control}")

    def click(self, role, name=None):
        return self.click_on(self.find(role, name))

    def click_on(self, control):
        """Scrolls to a control of the window if needed, and clicks it."""
        return self.click_here(self.reveal(control))

    def click_here(self, control):
        """Clicks a control without scrolling, as in a dialog."""
        self._desktop.input.click(*self.middle(control))
        return control

    def click_in_popup(self, item):
        """Clicks an item of the menu or list that has just been opened. Clicks beside the position of the click that
        opened it: the toolkit ignores a second click there as accidental."""
        x, y, width, height = self._settled_box(item)
        point = (x + width / 4) * self._scale, (y + height / 2) * self._scale
        eventually(lambda: self._desktop.windows.popup_at(self.process, *point), f"no popup opens around {item}")
        self._desktop.input.click(*point)

    def focus(self, role, name=None):
        """Moves the focus to a control with the Tab key."""
        control = self.find(role, name)
        for _ in range(200):
            if control.has("focused"):
                return control
            before = self.focused()
            self.press("Tab")
            eventually(lambda: self.focused() != before, f"Tab does not leave {before}")
        raise AssertionError(f"Tab never reaches {control}")

    def focused(self):
        """The control that has the keyboard focus. The toolkit reports a list's current item as focused even when the
        list is not, so list items are skipped."""
        return next((control for control in self.root.walk()
                     if control.has("focused") and control.role != "list item"), None)

    def pages(self):
        """The titles in the sidebar."""
        return [item.name for item in self.find("list", "Sections").find_all("list item")]

    def show(self, page):
        """Chooses a page in the sidebar."""
        self.click_on(self.find("list", "Sections").find("list item", page))
        return self.find("panel", page)

    def pick(self, name, entry):
        """Chooses an entry of a picker with the mouse."""
        self.click_in_popup(self.click("combo box", name).find("list item", entry))

    def dialog(self, name):
        """The dialog with a name, once it is active."""
        dialog = self.find(("dialog", "alert"), name)
        eventually(lambda: dialog.has("active"), f"{dialog} is not active")
        return dialog

    def expect_no_dialog(self):
        eventually(lambda: not self.root.find_all(("dialog", "alert")), "a dialog stays open")

    def choose(self, menu, item):
        """Chooses an item of the menu bar with the mouse."""
        self.click_here(self.find("menu bar").find("menu item", menu))
        self.click_in_popup(self.find_in_menu(menu, item, showing=True))

    def find_in_menu(self, menu, item, showing=False):
        """An item of a menu in the menu bar. It shows only while the menu is open."""
        return self.find("menu bar").find("menu item", menu).find("menu item", item, showing)

    # Ending

    def signal(self, number=signal.SIGTERM):
        self._process.send_signal(number)

    def wait(self, seconds=SECONDS):
        """Waits until the program has ended, and returns its exit status."""
        eventually(lambda: self._process.poll() is not None, "the program does not end", seconds)
        return self._process.returncode

    def kill(self):
        processes.end(self._process)

    def _settled_box(self, control):
        """The control's box once it has a size and no longer changes."""
        seen = [None]

        def settled():
            box, seen[0] = seen[0], control.box
            return box if box == seen[0] and box[2] > 0 else None
        return eventually(settled, lambda: f"the box of {control} does not settle; the last one is {seen[0]}")

    def _running(self):
        if self._process.poll() is not None:
            raise AssertionError(f"the program ended with status {self._process.returncode}:\n{self.output}")
        return True
