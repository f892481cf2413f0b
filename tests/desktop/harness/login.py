"""A stand-in for the per-user service manager: its tools, and its name on the session bus."""

import pathlib
import subprocess
import unittest

from gi.repository import GLib

from . import isolation
from .service import BusService

_TOOLS = ("systemctl", "systemd-run")
_FOLDER = pathlib.Path("/usr/bin")
_FALLBACK_FOLDER = pathlib.Path("/run/current-system/sw/bin")
_UNIT = "/org/freedesktop/systemd1/unit/com_2evantle_2eagent_2eservice"
_INTERFACE = """<node><interface name="org.freedesktop.systemd1.Unit">
<property name="ActiveState" type="s" access="read"/></interface></node>"""
_SCRIPT = """#!/bin/sh
echo "$*" >>{folder}/calls
trap 'echo "$*" >>{folder}/finished' EXIT
case "$0" in *systemd-run) exit;; esac
case "$*" in *" start "*|*" stop "*) until ! test -e {folder}/blocked; do sleep 0.01; done;; esac
test -e {folder}/failing && exit 1
case "$*" in *" start "*) echo active >{folder}/state;; *" stop "*) echo inactive >{folder}/state;; esac
"""


def provide_login_job(state):
    """Provides systemd's object of the login job on the session bus. `state()` returns its ActiveState."""
    BusService("org.freedesktop.systemd1", _UNIT, _INTERFACE, property=lambda _name: GLib.Variant("s", state()))


class LoginJobs:
    """Mounts a script over the service manager's tools, in the run's own mount namespace. Where the machine allows no
    such namespace, the tests are skipped."""

    def __init__(self, folder):
        if not isolation.has_own_mounts():
            raise unittest.SkipTest("This machine allows no mount namespace of one's own.")
        self._folder = pathlib.Path(folder)
        self._folder.mkdir()
        self.reset()
        script = self._folder / "systemctl"
        script.write_text(_SCRIPT.format(folder=self._folder))
        script.chmod(0o755)
        tools = [_FOLDER / tool for tool in _TOOLS]
        if not all(tool.exists() for tool in tools):
            subprocess.run(["mount", "-t", "tmpfs", "tmpfs", "/run"], check=True)
            _FALLBACK_FOLDER.mkdir(parents=True)
            tools = [_FALLBACK_FOLDER / tool for tool in _TOOLS]
            for tool in tools:
                tool.touch()
        for tool in tools:
            subprocess.run(["mount", "--bind", str(script), str(tool)], check=True)
        provide_login_job(lambda: self.state)

    def reset(self):
        """Restores the initial state: the job is not loaded, and no call is recorded."""
        for name in ("calls", "finished", "failing", "blocked"):
            (self._folder / name).unlink(missing_ok=True)
        self.state = "inactive"

    @property
    def calls(self):
        """The arguments of each call of a tool."""
        return self._lines("calls")

    @property
    def finished_calls(self):
        """The arguments of each call that has ended."""
        return self._lines("finished")

    def _lines(self, name):
        file = self._folder / name
        return file.read_text().splitlines() if file.exists() else []

    @property
    def state(self):
        return (self._folder / "state").read_text().strip()

    @state.setter
    def state(self, state):
        (self._folder / "state").write_text(state)

    def block(self):
        """From now on loading and unloading wait for unblock()."""
        (self._folder / "blocked").touch()

    def unblock(self):
        (self._folder / "blocked").unlink()

    def fail(self):
        """From now on loading and unloading fail."""
        (self._folder / "failing").touch()
