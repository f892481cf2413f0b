"""Windows as the window manager sees them. Lengths are pixels."""

from Xlib import X, Xutil, display, error, protocol


class Windows:
    """The windows of a screen, that of DISPLAY if not said otherwise."""

    def __init__(self, screen=None):
        self._display = display.Display(screen)
        self._root = self._display.screen().root

    def of(self, process):
        """The windows of a process that the window manager has taken over."""
        return [Window(self._display, window) for window in self._property(self._root, "_NET_CLIENT_LIST")
                if process in self._property(self._display.create_resource_object("window", window),
                                             "_NET_WM_PID")]

    @property
    def manager(self):
        """Whether a window manager has announced itself."""
        return bool(self._property(self._root, "_NET_SUPPORTING_WM_CHECK"))

    @property
    def active(self):
        """The identifier of the window that has the keyboard."""
        return next(iter(self._property(self._root, "_NET_ACTIVE_WINDOW")), 0)

    def popup_at(self, process, x, y):
        """Whether a window that the manager does not frame, such as a menu, of that process is at this pixel."""
        child = self._root.translate_coords(self._root, round(x), round(y)).child
        return bool(child) and process in self._property(child, "_NET_WM_PID")

    def popup_box(self, x, y):
        """x, y, width and height of the window without a frame that is at this pixel."""
        shape = self._root.translate_coords(self._root, round(x), round(y)).child.get_geometry()
        return shape.x, shape.y, shape.width, shape.height

    def pixel(self, x, y):
        """The colour on the screen there: red, green and blue from 0 to 255."""
        image = self._root.get_image(int(x), int(y), 1, 1, X.ZPixmap, 0xffffffff)
        blue, green, red = image.data[:3]
        return red, green, blue

    def close(self):
        self._display.close()

    def _property(self, window, name):
        return _property(self._display, window, name)


class Window:
    def __init__(self, connection, identifier):
        self._display = connection
        self.identifier = identifier
        self._window = connection.create_resource_object("window", identifier)

    @property
    def title(self):
        return bytes(_property(self._display, self._window, "_NET_WM_NAME")).decode()

    @property
    def box(self):
        """x, y, width and height of the client area on the screen."""
        shape = self._window.get_geometry()
        origin = self._display.screen().root.translate_coords(self._window, 0, 0)
        return origin.x, origin.y, shape.width, shape.height

    @property
    def frame(self):
        """The widths of the frame: left, right, top, bottom."""
        return tuple(_property(self._display, self._window, "_NET_FRAME_EXTENTS")) or (0, 0, 0, 0)

    @property
    def minimum(self):
        """The least width and height that the window asks for."""
        hints = self._window.get_wm_normal_hints()
        return hints.min_width, hints.min_height

    @property
    def parent(self):
        """The identifier of the window that it belongs to; 0 for none."""
        return next(iter(_property(self._display, self._window, "WM_TRANSIENT_FOR")), 0)

    @property
    def program(self):
        """The program that the window says it is of, as desktop entries name it."""
        return self._window.get_wm_class()[1]

    @property
    def variant(self):
        """Which variant of its theme the frame is asked to be drawn in."""
        return bytes(_property(self._display, self._window, "_GTK_THEME_VARIANT")).decode()

    @property
    def colours(self):
        """The file of colours that the frame is asked to be drawn in; empty where none is named."""
        return bytes(_property(self._display, self._window, "_KDE_NET_WM_COLOR_SCHEME")).decode()

    @property
    def icons(self):
        """The extents of the pictures that stand for the window in task lists, in pixels."""
        words, extents = list(_property(self._display, self._window, "_NET_WM_ICON")), []
        while words:
            width, height, *words = words
            extents.append((width, height))
            del words[:width * height]
        return extents

    @property
    def minimised(self):
        state = self._window.get_wm_state()
        return bool(state) and state.state == Xutil.IconicState

    def minimise(self):
        self._tell_manager("WM_CHANGE_STATE", Xutil.IconicState)

    @property
    def maximised(self):
        """Whether it fills the screen, as far as the window manager lets it."""
        states = _property(self._display, self._window, "_NET_WM_STATE")
        return all(state in states for state in self._maximised_states())

    def maximise(self, on=True):
        self._tell_manager("_NET_WM_STATE", int(on), *self._maximised_states(), 2)

    def activate(self):
        self._tell_manager("_NET_ACTIVE_WINDOW", 2, X.CurrentTime)

    def close(self):
        """What the frame's close button does."""
        self._tell_manager("_NET_CLOSE_WINDOW", X.CurrentTime, 2)

    def move_resize(self, x, y, width, height):
        """Moves and resizes as a person would with the frame."""
        everything = 0xF << 8 | 2 << 12 | X.StaticGravity
        self._tell_manager("_NET_MOVERESIZE_WINDOW", everything, x, y, width, height)

    def close_button(self):
        """Where the frame's close button is: at the trailing end of the title bar."""
        x, y, width, _ = self.box
        top = self.frame[2]
        return x + width - top / 2, y - top / 2

    def _maximised_states(self):
        return [self._display.intern_atom(f"_NET_WM_STATE_MAXIMIZED_{way}") for way in ("HORZ", "VERT")]

    def _tell_manager(self, message, *values):
        data = (list(values) + [0] * 5)[:5]
        event = protocol.event.ClientMessage(window=self._window, client_type=self._display.intern_atom(message),
                                             data=(32, data))
        self._display.screen().root.send_event(
            event, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self._display.sync()


def _property(connection, window, name):
    try:
        found = window.get_full_property(connection.intern_atom(name), X.AnyPropertyType)
    except error.BadWindow:
        return []
    return found.value if found else []
