"""KWin as a Wayland compositor, which runs scripts that call back over the session bus."""

import json
import os
import subprocess

from gi.repository import Gio, GLib

from harness.service import BusService
from harness.waiting import eventually

from compositors import Compositor, Seen
from expected import LEAST_SIZE

_LISTENER = "com.vantle.desktops"
_INTERFACE = """<node><interface name="com.vantle.desktops"><method name="Tell">
    <arg type="s" direction="in"/></method></interface></node>"""
# The list of windows has another name in version 6.
_SCRIPT = """
const windows = workspace.windowList ? workspace.windowList() : workspace.clientList();
const seen = windows.filter(window => window.caption === %s).map(window => {
    %s
    const box = ({x, y, width, height}) => [x, y, width, height];
    return {title: window.caption, app: window.desktopFileName, minimised: window.minimized,
            box: box(window.frameGeometry), whole: box(workspace.clientArea(KWin.MaximizeArea, window)),
            colours: window.colorScheme, least: window.minSize ? [window.minSize.width, window.minSize.height] : []};
});
callDBus("com.vantle.desktops", "/", "com.vantle.desktops", "Tell", JSON.stringify(seen));
"""
_ACTIONS = {"minimise": "window.minimized = true;", "restore": "window.minimized = false;",
            "maximise": "window.setMaximize(true, true);", "unmaximise": "window.setMaximize(false, false);",
            "close": "window.closeWindow();"}


class KWin(Compositor):
    HEEDS_LEAST_SIZE = False

    def __init__(self, folder, screen, scale, log):
        self._folder = folder
        self._reports = []
        self._listener = BusService(_LISTENER, "/", _INTERFACE,
                                    called=lambda _method, arguments: self._reports.append(arguments[0]))
        socket = f"vantle-kwin-{scale:g}"
        # Here the size is in points.
        width, height = (round(length / scale) for length in screen)
        super().__init__(socket, ["kwin_wayland", "--virtual", "--no-lockscreen", "--socket", socket,
                                  "--width", str(width), "--height", str(height), "--scale", str(scale)],
                         log, {"KWIN_SCREENSHOT_NO_PERMISSION_CHECKS": "1"})

    def window(self, title):
        found = self._ask(title)
        if not found:
            return None
        seen, = found
        return Seen(seen["title"], seen["app"], tuple(seen["box"]), seen["minimised"], seen["box"] == seen["whole"])

    def look(self, title, report):
        seen, = self._ask(title)
        report.check("least size", tuple(seen["least"]), LEAST_SIZE)
        # The colours of the session, unless the toolkit has a plug-in for this desktop, which passes on the program's
        # request.
        report.note("colours of its frame", seen["colours"])

    def do(self, title, action):
        self._ask(title, _ACTIONS[action])

    def takes_pictures(self):
        """Version 6 also draws without a graphics card, but then takes no pictures."""
        answer, = Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(
            "org.kde.KWin", "/org/kde/KWin", "org.freedesktop.DBus.Introspectable", "Introspect", None, None,
            Gio.DBusCallFlags.NONE, 20000).unpack()
        return "ScreenShot2" in answer

    def take(self, picture):
        """The compositor writes raw pixels into a pipe."""
        reading, writing = os.pipe()
        files = Gio.UnixFDList.new_from_array([writing])  # takes the descriptor over and closes it
        options = {"native-resolution": GLib.Variant("b", True)}
        answer, _ = Gio.bus_get_sync(Gio.BusType.SESSION).call_with_unix_fd_list_sync(
            "org.kde.KWin", "/org/kde/KWin/ScreenShot2", "org.kde.KWin.ScreenShot2", "CaptureActiveScreen",
            GLib.Variant("(a{sv}h)", (options, 0)), None, Gio.DBusCallFlags.NONE, 20000, files)
        facts, = answer.unpack()
        del files
        with open(reading, "rb") as pipe:
            pixels = pipe.read()
        subprocess.run(["convert", "-size", f"{facts['stride'] // 4}x{facts['height']}", "-depth", "8", "bgra:-",
                        "-alpha", "off", str(picture)], input=pixels, check=True, timeout=60)

    def close(self):
        self._listener.close()
        super().close()

    def _ask(self, title, action=""):
        """Runs a script that does the action to the windows with a title, and returns what it reports of them."""
        script = self._folder / "script.js"
        script.write_text(_SCRIPT % (json.dumps(title), action))
        self._reports.clear()
        self._script("loadScript", GLib.Variant("(ss)", (str(script), _LISTENER)))
        self._script("start")
        eventually(lambda: self._reports, "the compositor does not run scripts")
        self._script("unloadScript", GLib.Variant("(s)", (_LISTENER,)))
        return json.loads(self._reports[-1])

    @staticmethod
    def _script(method, arguments=None):
        Gio.bus_get_sync(Gio.BusType.SESSION).call_sync(
            "org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting", method, arguments, None,
            Gio.DBusCallFlags.NONE, 20000)
