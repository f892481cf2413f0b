"""Starts, queries and controls compositors. A compositor is started anew for each scale factor."""

import dataclasses
import os
import subprocess

from harness import processes
from harness.waiting import eventually

import expected


@dataclasses.dataclass
class Seen:
    """A window as the compositor reports it. `box` is its x, y, width and height with its frame, in points."""
    title: str
    app: str
    box: tuple
    minimised: bool
    maximised: bool


class Compositor:
    """A compositor that creates its socket in the session's runtime folder. `socket` is the value of WAYLAND_DISPLAY
    for its clients. The size of its screen is given in pixels."""

    SCALES = expected.SCALES
    REPORTS_WINDOWS = True
    HEEDS_LEAST_SIZE = True  # also when a script, not the user, resizes a window
    DARK = False  # whether all versions draw a dark frame for a window that asks for one
    MINIMISED, MAXIMISED = "minimised and back", "maximised and back"

    def __init__(self, socket, command, log, environment=()):
        self.socket = socket
        self._log = log
        self._process = processes.start(command, env=dict(os.environ, DISPLAY="", **dict(environment)),
                                        stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        path = os.path.join(os.environ["XDG_RUNTIME_DIR"], socket)
        eventually(lambda: os.path.exists(path), "the compositor does not start")

    def look(self, title, report):
        """Checks and reports what only this compositor knows of the window."""

    def takes_pictures(self):
        return True

    def close(self):
        processes.end(self._process)

    def _run(self, *command):
        done = subprocess.run(command, env=dict(os.environ, WAYLAND_DISPLAY=self.socket), text=True, timeout=60,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        if done.returncode != 0:
            raise RuntimeError(f"{command} says {done.stdout}")
        return done.stdout
