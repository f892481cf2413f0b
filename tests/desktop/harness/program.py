"""The running program, and everything that a person does with it."""

import os
import signal
import subprocess

from . import processes
from .waiting import SECONDS, eventually

WINDOW = "Vantle Settings"


class Program:
    """Started in a home directory; `scale` is the scale factor of its screen."""

    def __init__(self, desktop, home, scale=1, arguments=(), environment=None):
        self._desktop = desktop
        self._scale = scale
        self.home = home
        surroundings = dict(os.environ, HOME=str(home), QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        if scale != 1:
            surroundings["QT_SCALE_FACTOR"] = str(scale)
        surroundings.update(environment or {})
        self._said = open(home.parent / f"{home.name}.said", "w+b")
        self._process = processes.start([desktop.program, *arguments], env=surroundings, cwd=home,
                                        stdin=subprocess.DEVNULL, stdout=self._said, stderr=self._said)
        self.process = self._process.pid

    # What is there

    @property
    def root(self):
        return eventually(lambda: self._running() and self._desktop.accessibility.program(self.process),
                          "the program does not show itself on the accessibility bus")

    @property
    def frame(self):
        return self.root.find("frame", WINDOW)

    @property
    def window(self):
        """The settings window as the window manager sees it."""
        def found():
            windows = [window for window in self._desktop.windows.of(self.process) if window.title == WINDOW]
            return windows if len(windows) == 1 else None
        return eventually(lambda: self._running() and found(), "the window does not appear")[0]

    def find(self, role, name=None):
        return self.root.find(role, name)

    @property
    def said(self):
        """Everything that the program has written to its standard output and error."""
        self._said.seek(0)
        return self._said.read().decode(errors="replace")

    # What a person does

    def ready(self):
        """Waits until the window has the keyboard and shows its first page."""
        window = self.window
        self.find("list", "Sections")
        eventually(lambda: self._desktop.windows.active == window.identifier, "the window is not active")
        return self

    def press(self, *strokes):
        self._desktop.hands.press(*strokes)

    def type(self, text):
        self._desktop.hands.type(text)

    def middle(self, control):
        """The pixel in the middle of a control, once that has a size."""
        x, y, width, height = eventually(lambda: (box := control.box)[2] > 0 and box, f"{control} has no size")
        return (x + width / 2) * self._scale, (y + height / 2) * self._scale

    def click(self, role, name=None):
        return self.click_on(self.find(role, name))

    def click_on(self, control):
        self._desktop.hands.click(*self.middle(control))
        return control

    def focus(self, role, name=None):
        """Walks to a control with the Tab key."""
        control = self.find(role, name)
        for _ in range(200):
            if control.has("focused"):
                return control
            before = self.focused()
            self.press("Tab")
            eventually(lambda: self.focused() != before, f"Tab does not leave {before}")
        raise AssertionError(f"Tab never reaches {control}")

    def focused(self):
        return next((control for control in self.root.walk()
                     if control.has("focused") and control.has("focusable")), None)

    def pages(self):
        """The titles in the sidebar."""
        return [item.name for item in self.find("list", "Sections").find_all("list item")]

    def show(self, page):
        """Chooses a page in the sidebar."""
        self.click_on(self.find("list", "Sections").find("list item", page))
        return self.find("panel", page)

    def pick(self, name, entry):
        """Chooses an entry of a picker with the mouse."""
        self.click_on(self.click("combo box", name).find("list item", entry))

    def choose(self, menu, item):
        """Chooses an item of the menu bar with the mouse."""
        self.click_on(self.find("menu bar").find("menu item", menu))
        self.click_on(self.find_in_menu(menu, item, showing=True))

    def find_in_menu(self, menu, item, showing=False):
        """An item of the menu bar, which shows only while its menu is open."""
        return self.find("menu bar").find("menu item", menu).find("menu item", item, showing)

    # How it ends

    def signal(self, number=signal.SIGTERM):
        self._process.send_signal(number)

    def ended(self, seconds=SECONDS):
        """Waits for the end and returns the exit status."""
        eventually(lambda: self._process.poll() is not None, "the program does not end", seconds)
        return self._process.returncode

    def kill(self):
        processes.end(self._process)

    def _running(self):
        if self._process.poll() is not None:
            raise AssertionError(f"the program ended with status {self._process.returncode}:\n{self.said}")
        return True
