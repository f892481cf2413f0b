"""Another program from which something is dragged, by the protocol that file managers speak."""

from Xlib import X, Xatom, display
from Xlib.protocol import event

from .waiting import eventually

_VERSION = 5
_FORMAT = "text/uri-list"


class Drag:
    """Drags paths from creation to drop() or close()."""

    def __init__(self, *paths):
        self._offered = "".join(f"{path.as_uri()}\r\n" for path in paths).encode()
        self._display = display.Display()
        self._source = self._display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self._source.set_selection_owner(self._atom("XdndSelection"), X.CurrentTime)
        self._source.change_property(self._atom("XdndActionList"), Xatom.ATOM, 32, [
            self._atom(f"XdndAction{action}") for action in ("Move", "Copy", "Link")])
        self._answers = {}

    def over(self, window, x, y):
        """Moves to a pixel of the screen that is in the window, and returns what would happen to a drop there: the
        name of an action, or None."""
        self._target = self._display.create_resource_object("window", window)
        self._tell("XdndEnter", _VERSION << 24, self._atom(_FORMAT))
        self._tell("XdndPosition", 0, int(x) << 16 | int(y), X.CurrentTime, self._atom("XdndActionMove"))
        accepts, _, _, action = self._answer("XdndStatus")
        return self._display.get_atom_name(action) if accepts & 1 else None

    def leave(self):
        self._tell("XdndLeave")

    def drop(self):
        """Drops there, and returns the name of the action that was done, or None."""
        self._tell("XdndDrop", 0, X.CurrentTime)
        done, action, *_ = self._answer("XdndFinished")
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

    def _answer(self, message):
        """Waits for the target's answer, and gives it the data meanwhile."""
        kind = self._atom(message)
        return eventually(lambda: self._look(kind), f"no {message} comes")

    def _look(self, kind):
        while self._display.pending_events():
            happened = self._display.next_event()
            if happened.type == X.SelectionRequest:
                self._give(happened)
            elif happened.type == X.ClientMessage and happened.client_type == kind:
                return list(happened.data[1])[1:]
        return None

    def _give(self, request):
        request.requestor.change_property(request.property, request.target, 8, self._offered)
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection, target=request.target,
            property=request.property))
        self._display.flush()
