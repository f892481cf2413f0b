"""A stand-in for the desktop's portal for file dialogs: it shows no dialog, and records the requests for one."""

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
    """`parents` and `options` are the arguments with which each dialog so far was requested, `closed` is the number of
    dialogs that the program has closed. A `stopped` portal accepts calls and answers none, like a process that
    hangs."""

    def __init__(self, stopped=False):
        self.parents, self.options, self.closed = [], [], 0
        self._running = threading.Event()
        if not stopped:
            self._running.set()
        self._service = BusService("org.freedesktop.portal.Desktop", _PATH, _CHOOSER, called=self._open,
                                   property=self._version)

    def answer(self, code, folder=None):
        """Ends the newest dialog with a response code and the folder that was chosen."""
        results = {"uris": GLib.Variant("as", [folder.as_uri()])} if folder else {}
        self._service.connection.emit_signal(None, self._request, "org.freedesktop.portal.Request", "Response",
                                             GLib.Variant("(ua{sv})", (code, results)))

    def close(self):
        self._running.set()
        self._service.close()

    def _version(self, _name):
        self._running.wait()
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
