"""Other programs that use the clipboard: one that pastes, one that has copied a picture, and a clipboard manager."""

import select
import threading

from Xlib import X, Xatom, display
from Xlib.protocol import event

from .waiting import eventually


def pasted(selection="CLIPBOARD"):
    """The text of the clipboard or of another selection; empty if no program offers one."""
    connection = display.Display()
    try:
        window = connection.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        prop = connection.intern_atom("VANTLE_TEST_PASTE")
        window.convert_selection(connection.intern_atom(selection), connection.intern_atom("UTF8_STRING"), prop,
                                 X.CurrentTime)
        connection.flush()
        answer = eventually(lambda: _answer(connection), "the owner of the clipboard does not answer")
        if answer.property == X.NONE:
            return ""
        return bytes(window.get_full_property(prop, X.AnyPropertyType).value).decode()
    finally:
        connection.close()


def _answer(connection):
    while connection.pending_events():
        answer = connection.next_event()
        if answer.type == X.SelectionNotify:
            return answer
    return None


class _Owner:
    """A program that owns selections of the X server until close(). It answers requests in its own thread."""

    def __init__(self, *selections):
        self._display = display.Display()
        self._window = self._display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        for name in selections:
            self._window.set_selection_owner(self._display.intern_atom(name), X.CurrentTime)
        self._display.sync()
        self._closing = threading.Event()
        self._thread = threading.Thread(target=self._serve, daemon=True)

    def open(self):
        self._thread.start()

    def close(self):
        self._closing.set()
        self._thread.join()
        self._display.close()

    def _serve(self):
        while not self._closing.is_set():
            select.select([self._display.fileno()], [], [], 0.05)
            while self._display.pending_events():
                self._handle(self._display.next_event())

    @staticmethod
    def _answer(request, prop):
        """Notifies the requestor of the property that has the answer, or with X.NONE that there is none."""
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection, target=request.target,
            property=prop))


class Picture(_Owner):
    """A program that has selected and copied a picture: it offers the picture and no text."""

    def __init__(self):
        super().__init__("CLIPBOARD", "PRIMARY")
        self._format = self._display.intern_atom("image/png")
        self._targets = self._display.intern_atom("TARGETS")
        self.open()

    def _handle(self, request):
        if request.type != X.SelectionRequest:
            return
        prop = request.property
        if request.target == self._targets:
            request.requestor.change_property(prop, Xatom.ATOM, 32, [self._targets, self._format])
        elif request.target == self._format:
            request.requestor.change_property(prop, self._format, 8, b"a picture")
        else:
            prop = X.NONE
        self._answer(request, prop)
        self._display.flush()


class Manager(_Owner):
    """A clipboard manager. When a program asks it to, it copies the text of the clipboard and becomes the clipboard's
    owner. If it does not `respond`, it never answers."""

    def __init__(self, respond=True):
        super().__init__("CLIPBOARD_MANAGER")
        self.requests = 0
        self._respond = respond
        self._text = b""
        self._clipboard, self._format, self._target_property = (
            self._display.intern_atom(name) for name in ("CLIPBOARD", "UTF8_STRING", "VANTLE_TEST_MANAGER"))
        self._manager = self._display.intern_atom("CLIPBOARD_MANAGER")
        self.open()

    def _handle(self, received):
        if received.type == X.SelectionRequest and received.selection == self._manager:
            self.requests += 1
            self._save_request = received
            if self._respond:
                self._window.convert_selection(self._clipboard, self._format, self._target_property, X.CurrentTime)
        elif received.type == X.SelectionNotify:
            self._text = self._window.get_full_property(self._target_property, X.AnyPropertyType).value
            self._window.set_selection_owner(self._clipboard, X.CurrentTime)
            self._answer(self._save_request, self._save_request.property)
        elif received.type == X.SelectionRequest:
            received.requestor.change_property(received.property, self._format, 8, self._text)
            self._answer(received, received.property)
        self._display.flush()
