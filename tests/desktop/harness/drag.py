"""Another program from which files are dragged, by the Xdnd protocol."""

from Xlib import X, Xatom, display
from Xlib.protocol import event

from .waiting import eventually

_VERSION = 5
_FORMAT = "text/uri-list"


class Drag:
    """A drag of these paths, until drop() or leave(). close() ends the connection to the X server."""

    def __init__(self, *paths):
        self._offered = "".join(f"{path.as_uri()}\r\n" for path in paths).encode()
        self._display = display.Display()
        self._source = self._display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self._source.set_selection_owner(self._atom("XdndSelection"), X.CurrentTime)
        self._source.change_property(self._atom("XdndActionList"), Xatom.ATOM, 32, [
            self._atom(f"XdndAction{action}") for action in ("Move", "Copy", "Link")])

    def over(self, window, x, y):
        """Moves the drag to a pixel of the screen inside a window. Returns the name of the action that a drop there
        would have, or None if the window does not accept one."""
        self._target = self._display.create_resource_object("window", window)
        self._tell("XdndEnter", _VERSION << 24, self._atom(_FORMAT))
        self._tell("XdndPosition", 0, int(x) << 16 | int(y), X.CurrentTime, self._atom("XdndActionMove"))
        accepts, _, _, action = self._wait_for("XdndStatus")
        return self._display.get_atom_name(action) if accepts & 1 else None

    def leave(self):
        self._tell("XdndLeave")

    def drop(self):
        """Drops at the last position. Returns the name of the action that was performed, or None."""
        self._tell("XdndDrop", 0, X.CurrentTime)
        done, action, *_ = self._wait_for("XdndFinished")
        return self._display.get_atom_name(action) if done & 1 and action else None

    def close(self):
        self._display.close()

    def _atom(self, name):
        return self._display.intern_atom(name)

    def _tell(self, message, *values):
        data = ([self._source.id, *values] + [0] * 5)[:5]
        self._target.send_event(event.ClientMessage(window=self._target, client_type=self._atom(message),
                                                    data=(32, data)))
        self._display.flush()

    def _wait_for(self, message):
        """Waits for a message from the target and returns its data. Sends the paths whenever the target asks for
        them."""
        kind = self._atom(message)
        return eventually(lambda: self._received(kind), f"the target sends no {message}")

    def _received(self, kind):
        while self._display.pending_events():
            received = self._display.next_event()
            if received.type == X.SelectionRequest:
                self._send_paths(received)
            elif received.type == X.ClientMessage and received.client_type == kind:
                return list(received.data[1])[1:]
        return None

    def _send_paths(self, request):
        request.requestor.change_property(request.property, request.target, 8, self._offered)
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection, target=request.target,
            property=request.property))
        self._display.flush()
