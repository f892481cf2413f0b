"""What a screen reader knows of a program: its controls by role and name. They are queried over the accessibility bus
itself, because a client library would cache older answers."""

import subprocess
import threading

from gi.repository import Gio, GLib

from . import processes
from .waiting import eventually

_ACCESSIBLE = "org.a11y.atspi.Accessible"
_PROPERTIES = "org.freedesktop.DBus.Properties"
_BUS = "org.freedesktop.DBus", "/org/freedesktop/DBus"
_ROOT = "/org/a11y/atspi/accessible/root"
_LABELLED_BY = 2
# Roles of the toolkit whose controls have no children: half of the questions about a page are saved.
_WITHOUT_CHILDREN = ("check box", "image", "label", "push button", "separator", "text")

# The bits of a control's state that tests ask for.
STATES = {
    "active": 1, "busy": 3, "checked": 4, "defunct": 6, "editable": 7, "enabled": 8, "expanded": 10, "focusable": 11,
    "focused": 12, "selectable": 22, "selected": 23, "sensitive": 24, "showing": 25, "visible": 30,
    "default": 39,
}


class AccessibilityBus:
    """The bus on which programs expose their controls. `last_focused` is the control that last reported the focus, even
    if the tree does not show it, as in a context menu. `switched` lists each reported change of a checked state as a
    control and its new state. `announced` lists the texts of announcements and notifications, and `changed` the
    controls that reported a property change, such as another name or description."""

    def __init__(self):
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        address, = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
                                     Gio.DBusCallFlags.NONE, 20000)
        self._address = address
        self._connection = Gio.DBusConnection.new_for_address_sync(
            address,
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self.last_focused = None
        self.switched = []
        self.announced = []
        self.changed = []
        self._listen("focused", self._hear_focus)
        self._listen("checked", self._hear_switch)
        self._listen("showing", self._hear_notification)
        self._subscribe("Announcement", "object:announcement",
                        lambda _control, details: self.announced.append(details[3]))
        self._subscribe("PropertyChange", "object:property-change",
                        lambda control, _details: self.changed.append(control))

    def watch(self, method):
        """Returns a function that counts the later calls of that method whose arguments, as dbus-monitor prints them,
        contain a text."""
        monitor = processes.start(
            ["dbus-monitor", "--address", self._address, f"type='method_call',member='{method}'"], text=True,
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE)
        lines = []
        threading.Thread(target=lambda: lines.extend(monitor.stdout), daemon=True).start()
        # A connection gives its name up when it begins to watch.
        eventually(lambda: any("member=NameLost" in line for line in list(lines)), "the bus lets nobody watch")
        return lambda text: sum(text in line for line in list(lines))

    def process(self, name):
        """The id of the process that has a name on the bus."""
        return self.call(*_BUS, "org.freedesktop.DBus", "GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)))[0]

    def _listen(self, state, hear):
        self._connection.signal_subscribe(
            None, "org.a11y.atspi.Event.Object", "StateChanged", None, state, Gio.DBusSignalFlags.NONE,
            lambda _connection, owner, path, _interface, _signal, details:
                hear(Control(self, owner, path), bool(details.unpack()[1])))
        self.call("org.a11y.atspi.Registry", "/org/a11y/atspi/registry", "org.a11y.atspi.Registry", "RegisterEvent",
                  GLib.Variant("(sass)", (f"object:state-changed:{state}", [], "")))

    def _subscribe(self, signal, event, hear):
        self._connection.signal_subscribe(
            None, "org.a11y.atspi.Event.Object", signal, None, None, Gio.DBusSignalFlags.NONE,
            lambda _connection, owner, path, _interface, _signal, details:
                hear(Control(self, owner, path), details.unpack()))
        self.call("org.a11y.atspi.Registry", "/org/a11y/atspi/registry", "org.a11y.atspi.Registry", "RegisterEvent",
                  GLib.Variant("(sass)", (event, [], "")))

    def _hear_notification(self, control, showing):
        """Asks for the role without waiting: a program that was stopped does not answer."""
        def told(connection, answer):
            try:
                role, = connection.call_finish(answer).unpack()
            except GLib.Error:
                return
            if role == "notification":
                self.announced.append(control.name)

        if showing:
            self._connection.call(control.owner, control.path, _ACCESSIBLE, "GetRoleName", None, None,
                                  Gio.DBusCallFlags.NONE, 20000, None, told)

    def _hear_focus(self, control, focused):
        if focused:
            self.last_focused = control

    def _hear_switch(self, control, checked):
        self.switched.append((control, checked))

    def call(self, name, path, interface, method, arguments=None):
        return self._connection.call_sync(name, path, interface, method, arguments, None,
                                          Gio.DBusCallFlags.NONE, 20000).unpack()

    def program(self, process):
        """The program of that process id, or None until it shows itself."""
        registry = Control(self, "org.a11y.atspi.Registry", _ROOT)
        for program in registry.children:
            try:
                owner = self.process(program.owner)
            except GLib.Error:
                continue
            if owner == process:
                return program
        return None


class Control:
    """One node of the tree. A control that is gone has no children, no role and an empty name."""

    def __init__(self, bus, owner, path):
        self._bus = bus
        self.owner = owner
        self.path = path

    def __eq__(self, other):
        return isinstance(other, Control) and (self.owner, self.path) == (other.owner, other.path)

    def __hash__(self):
        return hash((self.owner, self.path))

    def __repr__(self):
        return f"{self.role} “{self.name}”"

    def _call(self, interface, method, arguments=None, gone=None):
        try:
            return self._bus.call(self.owner, self.path, interface, method, arguments)
        except GLib.Error:
            if gone is None:
                raise
            return gone

    def _property(self, name, interface=_ACCESSIBLE):
        return self._call(_PROPERTIES, "Get", GLib.Variant("(ss)", (interface, name)), ("",))[0]

    @property
    def children(self):
        found, = self._call(_ACCESSIBLE, "GetChildren", gone=([],))
        return [Control(self._bus, owner, path) for owner, path in found]

    @property
    def role(self):
        return self._call(_ACCESSIBLE, "GetRoleName", gone=("",))[0]

    @property
    def name(self):
        return self._property("Name")

    @property
    def description(self):
        return self._property("Description")

    @property
    def labels(self):
        """The names of the controls that this one is labelled by."""
        relations, = self._call(_ACCESSIBLE, "GetRelationSet", gone=([],))
        return [Control(self._bus, owner, path).name
                for kind, targets in relations if kind == _LABELLED_BY for owner, path in targets]

    def has(self, state):
        """Whether the control is in a state of STATES."""
        words, = self._call(_ACCESSIBLE, "GetState", gone=([0, 0],))
        return bool(((words[1] << 32) | words[0]) >> STATES[state] & 1)

    @property
    def box(self):
        """x, y, width and height on the screen, in points."""
        return self._call("org.a11y.atspi.Component", "GetExtents", GLib.Variant("(u)", (0,)))[0]

    @property
    def text(self):
        return self._call("org.a11y.atspi.Text", "GetText", GLib.Variant("(ii)", (0, -1)))[0]

    def set_text(self, text):
        self._call("org.a11y.atspi.EditableText", "SetTextContents", GLib.Variant("(s)", (text,)))

    @property
    def actions(self):
        return [action[0] for action in self._call("org.a11y.atspi.Action", "GetActions", gone=([],))[0]]

    def act(self, index=0):
        """Does one of the control's actions, the way a screen reader would."""
        return self._call("org.a11y.atspi.Action", "DoAction", GLib.Variant("(i)", (index,)))[0]

    def walk(self):
        """The control and everything below it, in reading order."""
        return (control for control, _ in self._walk())

    def _walk(self):
        role = self.role
        yield self, role
        if role in _WITHOUT_CHILDREN:
            return
        if role in ("list", "tree") and self.name == "Files":
            return  # the toolkit complains when its file dialog is asked for a file while it reads the folder
        for child in self.children:
            yield from child._walk()

    def find_all(self, role, name=None):
        """Everything of that role (or one of several) whose name, or the name of whose label, is as given."""
        roles = (role,) if isinstance(role, str) else role
        return [control for control, its in self._walk()
                if its in roles and (name is None or control.name == name or name in control.labels)]

    def find(self, role, name=None, showing=True):
        """The one such control, waited for until it shows."""
        def found():
            controls = [control for control in self.find_all(role, name)
                        if not showing or control.has("showing")]
            return controls if len(controls) == 1 else None
        return eventually(found, lambda: f"no single {role} “{name}” in:\n{self.outline()}")[0]

    def outline(self, depth=0):
        """The tree as text, one line for each control."""
        lines = ["  " * depth + f"{self.role} “{self.name}”"]
        return "\n".join(lines + [child.outline(depth + 1) for child in self.children])
