"""The desktop's portal for file dialogs, as a test provides it: its dialog is nothing but the record of what was
asked."""

import threading

from gi.repository import Gio, GLib

from .service import BusService

_PATH = "/org/freedesktop/portal/desktop"
_CHOOSER = """<node><interface name="org.freedesktop.portal.FileChooser">
    <method name="OpenFile"><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method>
    <property name="version" type="u" access="read"/></interface></node>"""
_REQUEST = """<node><interface name="org.freedesktop.portal.Request"><method name="Close"/>
    <signal name="Response"><arg type="u"/><arg type="a{sv}"/></signal></interface></node>"""


class FilePortal:
    """`parents` and `options` are the arguments with which each dialog so far was requested, `closed` is how many of
    them the program has closed. A `stopped` portal takes calls and answers none, as a process that hangs."""

    def __init__(self, stopped=False):
        self.parents, self.options, self.closed = [], [], 0
        self._goes_on = threading.Event()
        if not stopped:
            self._goes_on.set()
        self._service = BusService("org.freedesktop.portal.Desktop", _PATH, _CHOOSER, called=self._open,
                                   property=self._version)

    def answer(self, code, folder=None):
        """Ends the newest dialog."""
        results = {"uris": GLib.Variant("as", [folder.as_uri()])} if folder else {}
        self._service.connection.emit_signal(None, self._request, "org.freedesktop.portal.Request", "Response",
                                             GLib.Variant("(ua{sv})", (code, results)))

    def close(self):
        self._goes_on.set()
        self._service.close()

    def _version(self, _name):
        self._goes_on.wait()
        return GLib.Variant("u", 4)

    def _open(self, _method, arguments):
        parent, _, options = arguments
        caller = self._service.caller
        self._request = f"{_PATH}/request/{caller[1:].replace('.', '_')}/{options['handle_token']}"
        self._service.connection.register_object(
            self._request, Gio.DBusNodeInfo.new_for_xml(_REQUEST).interfaces[0], self._close_dialog, None, None)
        self.parents.append(parent)
        self.options.append(options)
        return GLib.Variant("(o)", (self._request,))

    def _close_dialog(self, *call):
        self.closed += 1
        call[-1].return_value(None)
