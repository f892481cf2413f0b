#!/usr/bin/python3
"""Starts the installed Orca with the preferences of a folder: start.py FOLDER

Does the same as Orca's own command, but leaves an Orca that the user may already run alone. Prints what Orca says to
the standard output (recorded.py), and answers each line on the standard input with "done" once Orca's event queue is
empty.
"""

import sys

from gi.repository import GLib
from orca import event_manager, orca


def answer(channel, _condition):
    line = channel.readline()
    if not line:
        return GLib.SOURCE_REMOVE

    def done():
        if event_manager.getManager()._eventQueue.empty():
            print("done", line.strip(), flush=True)
            return GLib.SOURCE_REMOVE
        return GLib.SOURCE_CONTINUE
    GLib.idle_add(done, priority=GLib.PRIORITY_LOW)
    return GLib.SOURCE_CONTINUE


preferences = sys.argv[1]
manager = orca.getSettingsManager()
manager.activate(preferences, {})
sys.path.insert(0, manager.getPrefsDir())
GLib.io_add_watch(sys.stdin, GLib.IO_IN | GLib.IO_HUP, answer)
sys.exit(orca.main())
