"""The desktop's appearance settings, seen in the window."""

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
    def test_a_switch_that_is_on_has_the_accent_colour_and_follows_its_changes(self):
        settings = {_GROUP: {_NAME: colour(1, 0.5, 0)}}
        portal = BusService("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", _SETTINGS,
                            called=lambda *_: GLib.Variant("(a{sa{sv}})", (settings,)))
        self.write(".vantle/green-screen.json", '{"enabled": true}')
        program = self.start()
        x, y = program.middle(program.reveal(program.find("check box", "Marketing Recording Mode")))
        self.expect(lambda: self.desktop.windows.pixel(x - 8, y) == (255, 128, 0),
                    "the switch does not have the accent colour")
        portal.emit("SettingChanged", GLib.Variant("(ssv)", (_GROUP, _NAME, colour(0, 1, 0))))
        self.expect(lambda: self.desktop.windows.pixel(x - 8, y) == (0, 255, 0), "the switch keeps the old colour")


class Corners(DesktopCase):
    """The tests' desktop has no compositing manager, so transparent corners of a window would be black."""

    def test_a_menu_has_no_black_corners(self):
        program = self.start()
        program.click_here(program.find("menu bar").find("menu item", "Edit"))
        self.expect_filled_corners(program, program.find_in_menu("Edit", "Paste", showing=True))

    def test_a_pickers_popup_has_no_black_corners(self):
        program = self.start()
        picker = program.click("combo box", "Terminal")
        self.expect_filled_corners(program, picker.find_all("list item")[0])

    def expect_filled_corners(self, program, item):
        windows = self.desktop.windows
        point = program.middle(item)
        self.expect(lambda: windows.popup_at(program.process, *point), "no popup opens")
        left, top, width, height = windows.popup_box(*point)
        right, bottom = left + width - 1, top + height - 1
        corners = [(x, y) for x in (left + 1, right - 1) for y in (top + 1, bottom - 1)]
        ground = left + width // 2, top + 2
        self.expect(lambda: {windows.pixel(*corner) for corner in corners} == {windows.pixel(*ground)},
                    lambda: f"{[windows.pixel(*corner) for corner in corners]} instead of {windows.pixel(*ground)}")
        self.assertNotEqual(windows.pixel(*ground), (0, 0, 0))
