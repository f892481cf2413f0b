"""What the desktop says of its looks, seen in the window."""

from gi.repository import GLib

from harness.case import DesktopCase
from harness.service import BusService

_SETTINGS = """<node><interface name="org.freedesktop.portal.Settings"><method name="ReadAll">
    <arg type="as" direction="in"/><arg type="a{sa{sv}}" direction="out"/></method>
    <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal></interface></node>"""
_GROUP = "org.freedesktop.appearance"
_NAME = "accent-color"


def colour(red, green, blue):
    return GLib.Variant("(ddd)", (red, green, blue))


class Accent(DesktopCase):
    def test_a_switch_that_is_on_has_it_and_follows_its_change(self):
        settings = {_GROUP: {_NAME: colour(1, 0.5, 0)}}
        portal = BusService("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", _SETTINGS,
                            called=lambda *_: GLib.Variant("(a{sa{sv}})", (settings,)))
        self.write(".vantle/green-screen.json", '{"enabled": true}')
        program = self.start()
        x, y = program.middle(program.reveal(program.find("check box", "Marketing Recording Mode")))
        self.expect(lambda: self.desktop.windows.pixel(x - 8, y) == (255, 128, 0), "it has not the desktop's colour")
        portal.tell("SettingChanged", GLib.Variant("(ssv)", (_GROUP, _NAME, colour(0, 1, 0))))
        self.expect(lambda: self.desktop.windows.pixel(x - 8, y) == (0, 255, 0), "it keeps the old colour")
