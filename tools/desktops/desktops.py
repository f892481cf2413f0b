"""The desktops that are tried."""

import dataclasses
import re
import shutil
import subprocess

import gnome
import kwin
import portals
import sway
import wayland
import weston
import x11


@dataclasses.dataclass(frozen=True)
class _Desktop:
    name: str
    command: tuple  # the command that starts it, or at least its program
    kind: str       # what XDG_CURRENT_DESKTOP says on it

    @property
    def installed(self):
        return shutil.which(self.command[0]) is not None

    @property
    def version(self):
        """The version that the program prints. To be read on the desktop itself, as some programs print it nowhere
        else."""
        said = subprocess.run([self.command[0], "--version"], capture_output=True, text=True).stdout
        number = re.search(r"\d+(\.\d+)+", said)
        return number.group() if number else "of unknown version"


@dataclasses.dataclass(frozen=True)
class X11Desktop(_Desktop):
    dark: bool  # whether all its versions draw a dark frame for a window that asks for one

    def look(self, *arguments):
        x11.look(self, *arguments)


@dataclasses.dataclass(frozen=True)
class WaylandDesktop(_Desktop):
    compositor: type  # one of compositors.Compositor

    def look(self, *arguments):
        wayland.look(self, *arguments)


@dataclasses.dataclass(frozen=True)
class Portal(_Desktop):
    def look(self, *arguments):
        portals.look(self, *arguments)


DESKTOPS = (
    X11Desktop("openbox", ("openbox", "--sm-disable"), "", dark=False),
    X11Desktop("xfwm4", ("xfwm4",), "XFCE", dark=False),
    X11Desktop("kwin-x11", ("kwin_x11",), "KDE", dark=True),
    # In later versions a program of its own draws the frames, and follows the session instead of the window.
    X11Desktop("mutter-x11", ("mutter", "--x11"), "GNOME", dark=False),
    WaylandDesktop("weston", ("weston",), "", weston.Weston),
    WaylandDesktop("sway", ("sway",), "sway", sway.Sway),
    WaylandDesktop("kwin-wayland", ("kwin_wayland",), "KDE", kwin.KWin),
    WaylandDesktop("gnome-shell", ("gnome-shell",), "GNOME", gnome.GnomeShell),
    Portal("portal-gtk", ("/usr/libexec/xdg-desktop-portal-gtk",), "GNOME"),
)
