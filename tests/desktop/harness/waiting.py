"""Waiting for something to become so, with a deadline and never for a fixed time."""

import os
import time

from gi.repository import GLib

# Tools that make a program slow ask for more patience.
SECONDS = 20.0 * float(os.environ.get("VANTLE_DESKTOP_PATIENCE", 1))


def eventually(condition, what, seconds=SECONDS):
    """Returns the first truthy value of condition(), asked again after each message of the buses and at least
    fifty times a second; fails, saying what was waited for, when that takes too long."""
    deadline = time.monotonic() + seconds
    context = GLib.MainContext.default()
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise AssertionError(f"{what() if callable(what) else what} (waited {seconds:g} s)")
        alarm = GLib.timeout_add(20, lambda: GLib.SOURCE_REMOVE)
        context.iteration(True)
        source = context.find_source_by_id(alarm)
        if source:
            source.destroy()
