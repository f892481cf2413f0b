"""A desktop for the tests alone: X server, window manager, session bus and accessibility bus."""

import os
import pathlib
import shutil
import subprocess

from . import processes

_WINDOW_MANAGER = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <theme><name>Clearlooks</name><titleLayout>NLC</titleLayout></theme>
  <desktops><number>1</number></desktops>
  <keyboard/>
  <mouse>
    <context name="Titlebar"><mousebind button="Left" action="Drag"><action name="Move"/></mousebind></context>
    <context name="Close"><mousebind button="Left" action="Click"><action name="Close"/></mousebind></context>
  </mouse>
</openbox_config>
"""

_SESSION_BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-BUS Bus Configuration 1.0//EN"
  "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={socket}</listen>
  <auth>EXTERNAL</auth>
  <servicedir>{services}</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/>
  </policy>
</busconfig>
"""

# The only service that the bus may start: the machine's other services are not activated.
_ACCESSIBILITY_SERVICE = "/usr/share/dbus-1/services/org.a11y.Bus.service"

# Prefixes of the environment variables with which the surrounding desktop describes itself to its programs.
_FOREIGN = ("XDG_", "QT_", "LC_", "GTK_", "WAYLAND_", "DBUS_", "SESSION_", "AT_SPI", "DISPLAY")


def pictures_of(program):
    """The folder for pictures of the desktop on which a program is tested."""
    return (pathlib.Path(program).resolve().parent / "../desktop-tests").resolve()


class Desktop:
    """The session in which the program runs, and the tests' access to its input, windows and controls. Sets the
    environment of this process, which the processes that it starts inherit. `manager` is the command of the
    window manager, openbox by default."""

    def __init__(self, program, folder, manager=None):
        self.program = str(pathlib.Path(program).resolve())
        self.folder = pathlib.Path(folder)
        self._manager = manager
        self._log = open(self.folder / "desktop.log", "wb")
        self._running = []

    def open(self, width=1800, height=1400):
        self.size = (width, height)
        for name in ("runtime", "home"):
            (self.folder / name).mkdir(mode=0o700)
        for name in [name for name in os.environ if name.startswith(_FOREIGN)]:
            del os.environ[name]
        os.environ.update(HOME=str(self.folder / "home"), XDG_RUNTIME_DIR=str(self.folder / "runtime"),
                          LANG="C.UTF-8")
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._start_bus()
        os.environ["DISPLAY"], _ = self._start_screen()
        self._start_window_manager(os.environ["DISPLAY"])

        # These connect to the desktop when they are imported or constructed, so the desktop has to run first.
        from .accessibility import AccessibilityBus
        from .input import Input
        from .waiting import eventually
        from .windows import Windows
        self.accessibility = AccessibilityBus()
        self.input = Input()
        self.windows = Windows()
        eventually(lambda: self.windows.manager, "the window manager does not start")

    def another_screen(self):
        """Starts another X server of the same size with a window manager, which a test may kill."""
        from .waiting import eventually
        from .windows import Windows
        name, server = self._start_screen()
        self._start_window_manager(name)
        windows = Windows(name)
        eventually(lambda: windows.manager, "the window manager does not start")
        return Screen(name, server, windows)

    def close(self):
        for process in reversed(self._running):
            processes.end(process)
        self._log.close()

    def picture(self, name):
        """Takes a picture of the screen and returns its path."""
        folder = pictures_of(self.program)
        folder.mkdir(exist_ok=True)
        file = folder / f"{name}.png"
        subprocess.run(["import", "-window", "root", str(file)], stderr=self._log, timeout=60)
        return file

    def _start(self, *arguments, **options):
        process = processes.start(arguments, stdin=subprocess.DEVNULL, stderr=self._log, **options)
        self._running.append(process)
        return process

    def _start_screen(self):
        width, height = self.size
        reading, writing = os.pipe()
        server = self._start("Xvfb", "-displayfd", str(writing), "-screen", "0", f"{width}x{height}x24", "-dpi", "96",
                             "-nolisten", "tcp", "-noreset", "-ac", stdout=self._log, pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError("the X server did not start")
        return f":{number}", server

    def _start_bus(self):
        services = self.folder / "services"
        services.mkdir()
        shutil.copy(_ACCESSIBILITY_SERVICE, services)
        configuration = self.folder / "session-bus.conf"
        configuration.write_text(_SESSION_BUS.format(socket=self.folder / "runtime" / "bus", services=services))
        bus = self._start("dbus-daemon", "--nofork", f"--config-file={configuration}", "--print-address",
                          stdout=subprocess.PIPE)
        address = bus.stdout.readline().decode().strip()
        if not address:
            raise RuntimeError("the session bus did not start")
        return address

    def _start_window_manager(self, screen):
        configuration = self.folder / "window-manager.xml"
        configuration.write_text(_WINDOW_MANAGER)
        command = self._manager or ["openbox", "--sm-disable", "--config-file", str(configuration)]
        self._start(*command, stdout=self._log, env=dict(os.environ, DISPLAY=screen))


class Screen:
    """An X server beside the desktop's own. `name` is its value of DISPLAY, `windows` are its windows."""

    def __init__(self, name, server, windows):
        self.name = name
        self.windows = windows
        self._server = server

    def kill(self):
        """Kills the X server, so that its clients lose their connection without notice."""
        self._server.kill()
        self._server.wait()

    def close(self):
        processes.end(self._server)
