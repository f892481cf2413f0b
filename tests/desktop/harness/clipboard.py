"""What another program would paste."""

from Xlib import X, display

from .waiting import eventually


def pasted():
    """The text of the clipboard; empty where nobody offers one."""
    connection = display.Display()
    try:
        window = connection.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        place = connection.intern_atom("VANTLE_TEST_PASTE")
        window.convert_selection(connection.intern_atom("CLIPBOARD"), connection.intern_atom("UTF8_STRING"), place,
                                 X.CurrentTime)
        connection.flush()
        answer = eventually(lambda: _answer(connection), "the owner of the clipboard does not answer")
        if answer.property == X.NONE:
            return ""
        return bytes(window.get_full_property(place, X.AnyPropertyType).value).decode()
    finally:
        connection.close()


def _answer(connection):
    while connection.pending_events():
        event = connection.next_event()
        if event.type == X.SelectionNotify:
            return event
    return None
