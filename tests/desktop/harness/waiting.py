"""Waiting for a condition, with a deadline and never for a fixed time."""

import os
import time

from gi.repository import GLib

# Raised for a slow machine, and for tools that make the program slow.
SECONDS = 20.0 * float(os.environ.get("VANTLE_DESKTOP_PATIENCE", 1))


def eventually(condition, message, seconds=SECONDS):
    """Returns the first truthy value of condition(), which is called after each message from the buses and at least
    fifty times a second. Fails after these seconds with the message, a text or a function that returns one."""
    deadline = time.monotonic() + seconds
    context = GLib.MainContext.default()
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise AssertionError(f"{message() if callable(message) else message} (waited {seconds:g} s)")
        alarm = GLib.timeout_add(20, lambda: GLib.SOURCE_REMOVE)
        context.iteration(True)
        source = context.find_source_by_id(alarm)
        if source:
            source.destroy()


def eventually_one(found, message):
    """Waits until found() returns exactly one element, and returns that. See eventually()."""
    def single():
        elements = found()
        return elements if len(elements) == 1 else None
    return eventually(single, message)[0]
