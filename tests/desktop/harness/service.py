"""Stand-ins for services of the desktop, on the session bus."""

import os
import threading

from gi.repository import Gio, GLib


class BusService:
    """Provides an interface under a bus name at one path, from its own thread. `called(method, arguments)` is called
    for each call of a method and may return its answer, `property(name)` returns the value of a property. `connection`
    is the service's own connection to the bus, and `caller` the bus name of the last caller."""

    def __init__(self, name, path, interface, called=None, property=None):
        self._name, self._path = name, path
        self._interface = Gio.DBusNodeInfo.new_for_xml(interface).interfaces[0]
        self._called, self._property = called, property
        self._context = GLib.MainContext.new()
        self._loop = GLib.MainLoop.new(self._context, False)
        ready = threading.Event()
        self._thread = threading.Thread(target=self._serve, args=(ready,), daemon=True)
        self._thread.start()
        if not ready.wait(20):
            raise RuntimeError(f"{name} cannot be provided")

    def emit(self, signal, arguments):
        """Emits a signal of the interface."""
        self.connection.emit_signal(None, self._path, self._interface.name, signal, arguments)

    def close(self):
        """Disconnects from the bus, which releases the name."""
        self.connection.close_sync()
        self._loop.quit()
        self._thread.join()

    def _serve(self, ready):
        self._context.push_thread_default()
        connection = Gio.DBusConnection.new_for_address_sync(
            os.environ["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self.connection = connection
        connection.register_object(self._path, self._interface, self._call, self._get, None)
        connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                             GLib.Variant("(su)", (self._name, 4)), None, Gio.DBusCallFlags.NONE, -1)
        ready.set()
        self._loop.run()

    def _call(self, _connection, sender, _path, _interface, method, arguments, invocation):
        self.caller = sender
        answer = self._called(method, arguments.unpack())
        invocation.return_value(answer if isinstance(answer, GLib.Variant) else None)

    def _get(self, _connection, _sender, _path, _interface, name):
        return self._property(name)


class FileManager:
    """A file manager that records in `shown` the items that it was asked to show."""

    _INTERFACE = """<node><interface name="org.freedesktop.FileManager1"><method name="ShowItems">
        <arg type="as" direction="in"/><arg type="s" direction="in"/></method></interface></node>"""

    def __init__(self):
        self.shown = []
        BusService("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", self._INTERFACE,
                   called=lambda _method, arguments: self.shown.extend(arguments[0]))
