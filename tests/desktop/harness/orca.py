"""Runs the installed Orca and records what it says."""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import threading

from . import processes
from .waiting import eventually

_FILES = pathlib.Path(__file__).resolve().parent.parent / "orca"
_SETTINGS = {
    "general": {
        "speechServerFactory": "recorded", "enableBraille": False, "enableBrailleMonitor": False,
        "enableKeyEcho": False, "startingProfile": ["Default", "default"],
    },
    "profiles": {"default": {"profile": ["Default", "default"], "pronunciations": {}, "keybindings": {}}},
    "pronunciations": {}, "keybindings": {},
}


class Orca:
    """Runs from creation to close(), with its default settings except for the speech server."""

    def __init__(self, folder):
        folder = pathlib.Path(folder)
        folder.mkdir()
        shutil.copy(_FILES / "recorded.py", folder)
        (folder / "user-settings.conf").write_text(json.dumps(_SETTINGS))
        self._log = open(folder / "log", "w+b")
        self._spoken = []
        self._done = 0
        self._asked = 0
        self._process = processes.start(
            [sys.executable, str(_FILES / "start.py"), str(folder)], text=True,
            env=dict(os.environ, PYTHONDONTWRITEBYTECODE="1", GSETTINGS_BACKEND="memory"),
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=self._log)
        threading.Thread(target=self._listen, daemon=True).start()
        eventually(lambda: self._running() and self._spoken, "Orca does not start", 60)
        self.settle()
        self.take()

    def take(self):
        """Returns the utterances since the last call, and forgets them. One that another event interrupted is
        marked."""
        spoken, self._spoken = self._spoken, []
        return spoken

    @property
    def spoken(self):
        """The utterances that take() would return."""
        return list(self._spoken)

    def settle(self):
        """Waits until Orca has handled all events that it has received."""
        self._asked += 1
        self._process.stdin.write(f"{self._asked}\n")
        self._process.stdin.flush()
        eventually(lambda: self._running() and self._done == self._asked, "Orca does not finish handling its events")

    def close(self):
        processes.end(self._process)
        self._log.close()

    def _listen(self):
        for line in self._process.stdout:
            kind, _, text = line.rstrip("\n").partition(" ")
            if kind == "say":
                self._spoken.append(text)
            elif kind == "stop":
                self._spoken = [text if text.startswith("(cut short) ") else f"(cut short) {text}"
                                for text in self._spoken]
            elif kind == "done":
                self._done = int(text)

    def _running(self):
        if self._process.poll() is not None:
            self._log.seek(0)
            raise AssertionError(f"Orca ended with {self._process.returncode}:\n{self._log.read().decode()}")
        return True
