"""A stand-in for the manager of the login job: its tools and its name on the session bus, for this test alone."""

import pathlib
import subprocess
import unittest

from gi.repository import GLib

from . import isolation
from .service import BusService

_TOOLS = ("systemctl", "systemd-run")
_FOLDER = pathlib.Path("/usr/bin")
_LATER_FOLDER = pathlib.Path("/run/current-system/sw/bin")
_UNIT = "/org/freedesktop/systemd1/unit/com_2evantle_2eagent_2eservice"
_INTERFACE = """<node><interface name="org.freedesktop.systemd1.Unit">
<property name="ActiveState" type="s" access="read"/></interface></node>"""
_SCRIPT = """#!/bin/sh
echo "$*" >>{folder}/asked
trap 'echo "$*" >>{folder}/ended' EXIT
case "$0" in *systemd-run) exit;; esac
case "$*" in *" start "*|*" stop "*) until ! test -e {folder}/slow; do sleep 0.01; done;; esac
test -e {folder}/unwilling && exit 1
case "$*" in *" start "*) echo active >{folder}/state;; *" stop "*) echo inactive >{folder}/state;; esac
"""


def answer_for_the_job(state):
    """On the session bus, tells the job's state in systemd's words, as `state()` gives it."""
    BusService("org.freedesktop.systemd1", _UNIT, _INTERFACE, property=lambda _name: GLib.Variant("s", state()))


class LoginJobs:
    """Needs a mount namespace of its own: the stand-ins lie over the system's tools there. Where the machine allows
    none, the cases are left out."""

    def __init__(self, folder):
        if not isolation.has_own_mounts():
            raise unittest.SkipTest("This machine allows no mount namespace of one's own.")
        self._folder = pathlib.Path(folder)
        self._folder.mkdir()
        self.forget()
        script = self._folder / "systemctl"
        script.write_text(_SCRIPT.format(folder=self._folder))
        script.chmod(0o755)
        tools = [_FOLDER / tool for tool in _TOOLS]
        if not all(tool.exists() for tool in tools):
            subprocess.run(["mount", "-t", "tmpfs", "tmpfs", "/run"], check=True)
            _LATER_FOLDER.mkdir(parents=True)
            tools = [_LATER_FOLDER / tool for tool in _TOOLS]
            for tool in tools:
                tool.touch()
        for tool in tools:
            subprocess.run(["mount", "--bind", str(script), str(tool)], check=True)
        answer_for_the_job(lambda: self.state)

    def forget(self):
        """As at the start: the job is not loaded, and nobody asked."""
        for name in ("asked", "ended", "unwilling", "slow"):
            (self._folder / name).unlink(missing_ok=True)
        self.state = "inactive"

    @property
    def asked(self):
        """The arguments of each call of the tool."""
        return self._lines("asked")

    @property
    def ended(self):
        """The arguments of each call that has ended."""
        return self._lines("ended")

    def _lines(self, name):
        file = self._folder / name
        return file.read_text().splitlines() if file.exists() else []

    @property
    def state(self):
        return (self._folder / "state").read_text().strip()

    @state.setter
    def state(self, state):
        (self._folder / "state").write_text(state)

    def slow_down(self):
        """From now on loading and unloading take until `go_on`."""
        (self._folder / "slow").touch()

    def go_on(self):
        (self._folder / "slow").unlink()

    def refuse(self):
        """From now on nothing is loaded or unloaded."""
        (self._folder / "unwilling").touch()
