"""GNOME Shell, which in its unsafe mode evaluates scripts."""

import json
import os

from gi.repository import Gio, GLib

from harness.waiting import eventually

from compositors import Compositor, Seen
from expected import ENTRY

_WINDOW = """(() => {
    const window = global.get_window_actors().map(actor => actor.meta_window).find(one => one.title === %s);
    if (!window)
        return null;
    %s
    const frame = window.get_frame_rect();
    const app = Shell.WindowTracker.get_default().get_window_app(window);
    return {title: window.title, app: window.get_wm_class(), box: [frame.x, frame.y, frame.width, frame.height],
            minimised: window.minimized, maximised: window.maximized_horizontally && window.maximized_vertically,
            entry: app.get_id(), icon: app.get_icon() ? app.get_icon().to_string() : ""};
})()"""
_ACTIONS = {"minimise": "window.minimize();", "restore": "window.unminimize();",
            "maximise": "window.maximize(3);", "unmaximise": "window.unmaximize(3);",
            "shrink": "window.move_resize_frame(true, 10, 40, 100, 100);",
            "close": "window.delete(global.get_current_time());"}
# Enables fractional scale factors, and disables the welcome tour.
_SETTINGS = """[org/gnome/mutter]
experimental-features=['scale-monitor-framebuffer']
[org/gnome/shell]
welcome-dialog-last-shown-version='1000'
"""


class GnomeShell(Compositor):
    DARK = True  # as the program draws its frame itself

    def __init__(self, folder, screen, scale, log):
        settings = folder / "config/glib-2.0/settings/keyfile"
        settings.parent.mkdir(parents=True)
        settings.write_text(_SETTINGS)
        socket = f"vantle-gnome-{scale:g}"
        super().__init__(socket, [
            "gnome-shell", "--headless", "--unsafe-mode", "--no-x11", f"--wayland-display={socket}",
            f"--virtual-monitor={screen[0]}x{screen[1]}"], log, {
                "GSETTINGS_BACKEND": "keyfile", "XDG_CONFIG_HOME": str(folder / "config"),
                "DBUS_SYSTEM_BUS_ADDRESS": os.environ["DBUS_SESSION_BUS_ADDRESS"]})
        eventually(lambda: self._evaluate("!Main.layoutManager._startingUp"), "the shell does not start", 60)
        self._evaluate("Main.overview.hide()")
        self._use_scale(scale)

    def window(self, title):
        seen = self._ask(title)
        return seen and Seen(seen["title"], seen["app"], tuple(seen["box"]), seen["minimised"], seen["maximised"])

    def look(self, title, report):
        seen = self._ask(title)
        report.check("desktop entry", seen["entry"], f"{ENTRY}.desktop")
        report.check("icon", seen["icon"], ENTRY)

    def do(self, title, action):
        self._ask(title, _ACTIONS[action])

    def take(self, picture):
        self._call("org.gnome.Shell.Screenshot", "/org/gnome/Shell/Screenshot", "Screenshot",
                   GLib.Variant("(bbs)", (False, False, str(picture))))

    def _ask(self, title, action=""):
        return self._evaluate(_WINDOW % (json.dumps(title), action))

    def _evaluate(self, script):
        """The result of a script; None while the shell is not running, and if the script fails."""
        try:
            done, answer = self._call("org.gnome.Shell", "/org/gnome/Shell", "Eval", GLib.Variant("(s)", (script,)))
        except GLib.Error:
            return None
        return json.loads(answer) if done and answer else None

    def _use_scale(self, wanted):
        state = self._call("org.gnome.Mutter.DisplayConfig", "/org/gnome/Mutter/DisplayConfig", "GetCurrentState")
        serial, ((identity, modes, _properties),), _logical, _more = state
        mode = modes[0]
        scale = min(mode[5], key=lambda scale: abs(scale - wanted))
        self._call("org.gnome.Mutter.DisplayConfig", "/org/gnome/Mutter/DisplayConfig", "ApplyMonitorsConfig",
                   GLib.Variant("(uua(iiduba(ssa{sv}))a{sv})",
                                (serial, 1, [(0, 0, scale, 0, True, [(identity[0], mode[0], {})])], {})))

    @staticmethod
    def _call(name, path, method, arguments=None):
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        # Each interface has the name of its service.
        return bus.call_sync(name, path, name, method, arguments, None, Gio.DBusCallFlags.NONE, 20000).unpack()
