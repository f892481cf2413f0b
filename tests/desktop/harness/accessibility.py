"""A program's controls as a screen reader sees them, by role and name. They are queried over the accessibility bus
itself, because a client library would return cached answers."""

import subprocess
import threading

from gi.repository import Gio, GLib

from . import processes
from .waiting import eventually, eventually_one

_ACCESSIBLE = "org.a11y.atspi.Accessible"
_PROPERTIES = "org.freedesktop.DBus.Properties"
_BUS = "org.freedesktop.DBus", "/org/freedesktop/DBus"
_ROOT = "/org/a11y/atspi/accessible/root"
_LABELLED_BY = 2
# The toolkit's controls of these roles have no children. Not asking for them halves the number of calls for a page.
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
    pair of the control and its new state. `announced` lists the texts of announcements and notifications, and `changed`
    the controls that reported a property change, such as another name or description."""

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
        self._listen("focused", self._on_focused)
        self._listen("checked", self._on_checked)
        self._listen("showing", self._on_showing)
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
        # A connection loses its name when it becomes a monitor.
        eventually(lambda: any("member=NameLost" in line for line in list(lines)),
                   "dbus-monitor does not start to watch")
        return lambda text: sum(text in line for line in list(lines))

    def process(self, name):
        """The id of the process that owns a name on the bus."""
        return self.call(*_BUS, "org.freedesktop.DBus", "GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)))[0]

    def _listen(self, state, callback):
        self._connection.signal_subscribe(
            None, "org.a11y.atspi.Event.Object", "StateChanged", None, state, Gio.DBusSignalFlags.NONE,
            lambda _connection, owner, path, _interface, _signal, details:
                callback(Control(self, owner, path), bool(details.unpack()[1])))
        self.call("org.a11y.atspi.Registry", "/org/a11y/atspi/registry", "org.a11y.atspi.Registry", "RegisterEvent",
                  GLib.Variant("(sass)", (f"object:state-changed:{state}", [], "")))

    def _subscribe(self, signal, event, callback):
        self._connection.signal_subscribe(
            None, "org.a11y.atspi.Event.Object", signal, None, None, Gio.DBusSignalFlags.NONE,
            lambda _connection, owner, path, _interface, _signal, details:
                callback(Control(self, owner, path), details.unpack()))
        self.call("org.a11y.atspi.Registry", "/org/a11y/atspi/registry", "org.a11y.atspi.Registry", "RegisterEvent",
                  GLib.Variant("(sass)", (event, [], "")))

    def _on_showing(self, control, showing):
        """Asks for the role without waiting: a stopped program does not answer."""
        def on_role(connection, answer):
            try:
                role, = connection.call_finish(answer).unpack()
            except GLib.Error:
                return
            if role == "notification":
                self.announced.append(control.name)

        if showing:
            self._connection.call(control.owner, control.path, _ACCESSIBLE, "GetRoleName", None, None,
                                  Gio.DBusCallFlags.NONE, 20000, None, on_role)

    def _on_focused(self, control, focused):
        if focused:
            self.last_focused = control

    def _on_checked(self, control, checked):
        self.switched.append((control, checked))

    def call(self, name, path, interface, method, arguments=None):
        return self._connection.call_sync(name, path, interface, method, arguments, None,
                                          Gio.DBusCallFlags.NONE, 20000).unpack()

    def program(self, process):
        """The program with a process id, or None until it has registered itself."""
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
    """One node of the tree. A control that no longer exists has no children, an empty role and an empty name."""

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

    def _call(self, interface, method, arguments=None, if_gone=None):
        try:
            return self._bus.call(self.owner, self.path, interface, method, arguments)
        except GLib.Error:
            if if_gone is None:
                raise
            return if_gone

    def _property(self, name, interface=_ACCESSIBLE):
        return self._call(_PROPERTIES, "Get", GLib.Variant("(ss)", (interface, name)), ("",))[0]

    @property
    def children(self):
        found, = self._call(_ACCESSIBLE, "GetChildren", if_gone=([],))
        return [Control(self._bus, owner, path) for owner, path in found]

    @property
    def role(self):
        return self._call(_ACCESSIBLE, "GetRoleName", if_gone=("",))[0]

    @property
    def name(self):
        return self._property("Name")

    @property
    def description(self):
        return self._property("Description")

    @property
    def labels(self):
        """The names of the controls that label this one."""
        relations, = self._call(_ACCESSIBLE, "GetRelationSet", if_gone=([],))
        return [Control(self._bus, owner, path).name
                for kind, targets in relations if kind == _LABELLED_BY for owner, path in targets]

    def has(self, state):
        """Whether the control has a state, which is a key of STATES."""
        words, = self._call(_ACCESSIBLE, "GetState", if_gone=([0, 0],))
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
        return [action[0] for action in self._call("org.a11y.atspi.Action", "GetActions", if_gone=([],))[0]]

    def act(self, index=0):
        """Performs one of the control's actions, as a screen reader does."""
        return self._call("org.a11y.atspi.Action", "DoAction", GLib.Variant("(i)", (index,)))[0]

    def walk(self):
        """The control and its descendants, in reading order."""
        return (control for control, _ in self._walk())

    def _walk(self):
        role = self.role
        yield self, role
        if role in _WITHOUT_CHILDREN:
            return
        if role in ("list", "tree") and self.name == "Files":
            return  # the toolkit warns if a file is queried while its file dialog reads the folder
        for child in self.children:
            yield from child._walk()

    def find_all(self, role, name=None):
        """All controls of the subtree that have the role (or one of several) and the name, their own or that of a
        label."""
        roles = (role,) if isinstance(role, str) else role
        return [control for control, control_role in self._walk()
                if control_role in roles and (name is None or control.name == name or name in control.labels)]

    def find(self, role, name=None, showing=True):
        """Waits until there is exactly one such control, showing unless `showing` is false, and returns it."""
        return eventually_one(
            lambda: [control for control in self.find_all(role, name) if not showing or control.has("showing")],
            lambda: f"expected exactly one {role} “{name}” in:\n{self.outline()}")

    def outline(self, depth=0):
        """The tree as text, one line for each control."""
        lines = ["  " * depth + f"{self.role} “{self.name}”"]
        return "\n".join(lines + [child.outline(depth + 1) for child in self.children])
