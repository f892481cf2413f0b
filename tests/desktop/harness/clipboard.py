"""What another program would paste, or has copied."""

import select
import threading

from Xlib import X, Xatom, display
from Xlib.protocol import event

from .waiting import eventually


def pasted(selection="CLIPBOARD"):
    """The text of the clipboard or of another selection; empty where nobody offers one."""
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
    """A program that owns selections of the screen until it is closed. It answers in a thread of its own."""

    def __init__(self, *selections):
        self._display = display.Display()
        self._window = self._display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        for name in selections:
            self._window.set_selection_owner(self._display.intern_atom(name), X.CurrentTime)
        self._display.sync()
        self._ends = threading.Event()
        self._thread = threading.Thread(target=self._serve, daemon=True)

    def open(self):
        self._thread.start()

    def close(self):
        self._ends.set()
        self._thread.join()
        self._display.close()

    def _serve(self):
        while not self._ends.is_set():
            select.select([self._display.fileno()], [], [], 0.05)
            while self._display.pending_events():
                self._take(self._display.next_event())

    @staticmethod
    def _answer(request, prop):
        """Says where the answer is, or with X.NONE that there is none."""
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection, target=request.target,
            property=prop))


class Picture(_Owner):
    """A program in which a picture was selected and copied: it offers that, and no text."""

    def __init__(self):
        super().__init__("CLIPBOARD", "PRIMARY")
        self._format = self._display.intern_atom("image/png")
        self._targets = self._display.intern_atom("TARGETS")
        self.open()

    def _take(self, request):
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
    """A clipboard manager, which takes over what is on the clipboard when it is asked to; one that is not `quick` never
    answers."""

    def __init__(self, quick=True):
        super().__init__("CLIPBOARD_MANAGER")
        self.requests = 0
        self._quick = quick
        self._text = b""
        self._clipboard, self._format, self._place = (
            self._display.intern_atom(name) for name in ("CLIPBOARD", "UTF8_STRING", "VANTLE_TEST_MANAGER"))
        self._manager = self._display.intern_atom("CLIPBOARD_MANAGER")
        self.open()

    def _take(self, happened):
        if happened.type == X.SelectionRequest and happened.selection == self._manager:
            self.requests += 1
            self._asked = happened
            if self._quick:
                self._window.convert_selection(self._clipboard, self._format, self._place, X.CurrentTime)
        elif happened.type == X.SelectionNotify:
            self._text = self._window.get_full_property(self._place, X.AnyPropertyType).value
            self._window.set_selection_owner(self._clipboard, X.CurrentTime)
            self._answer(self._asked, self._asked.property)
        elif happened.type == X.SelectionRequest:
            happened.requestor.change_property(happened.property, self._format, 8, self._text)
            self._answer(happened, happened.property)
        self._display.flush()
