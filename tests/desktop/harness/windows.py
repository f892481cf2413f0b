"""Windows as the window manager sees them. Lengths are pixels."""

from Xlib import X, Xutil, display, error, protocol


class Windows:
    """The windows on an X server, by default that of DISPLAY."""

    def __init__(self, screen=None):
        self._display = display.Display(screen)
        self._root = self._display.screen().root

    def of(self, process):
        """The windows of a process that the window manager manages."""
        return [Window(self._display, window) for window in self._property(self._root, "_NET_CLIENT_LIST")
                if process in self._property(self._display.create_resource_object("window", window),
                                             "_NET_WM_PID")]

    @property
    def manager(self):
        """Whether a window manager has announced itself."""
        return bool(self._property(self._root, "_NET_SUPPORTING_WM_CHECK"))

    @property
    def active(self):
        """The identifier of the active window; 0 for none."""
        return next(iter(self._property(self._root, "_NET_ACTIVE_WINDOW")), 0)

    def popup_at(self, process, x, y):
        """Whether a popup of the process, such as a menu, is at a pixel: a window that the window manager does not
        frame."""
        child = self._root.translate_coords(self._root, round(x), round(y)).child
        return bool(child) and process in self._property(child, "_NET_WM_PID")

    def popup_box(self, x, y):
        """x, y, width and height of the popup at a pixel."""
        shape = self._root.translate_coords(self._root, round(x), round(y)).child.get_geometry()
        return shape.x, shape.y, shape.width, shape.height

    def pixel(self, x, y):
        """The colour of a pixel on the screen: red, green and blue from 0 to 255."""
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
        """The minimum width and height that the window requests."""
        hints = self._window.get_wm_normal_hints()
        return hints.min_width, hints.min_height

    @property
    def parent(self):
        """The identifier of the window that this one is transient for; 0 for none."""
        return next(iter(_property(self._display, self._window, "WM_TRANSIENT_FOR")), 0)

    @property
    def program(self):
        """The window's class, which desktop entries name as StartupWMClass."""
        return self._window.get_wm_class()[1]

    @property
    def variant(self):
        """The theme variant that the window requests for its frame, such as dark."""
        return bytes(_property(self._display, self._window, "_GTK_THEME_VARIANT")).decode()

    @property
    def colours(self):
        """The colour scheme file that the window requests for its frame; empty for none."""
        return bytes(_property(self._display, self._window, "_KDE_NET_WM_COLOR_SCHEME")).decode()

    @property
    def icons(self):
        """The sizes of the window's icons, in pixels."""
        words, sizes = list(_property(self._display, self._window, "_NET_WM_ICON")), []
        while words:
            width, height, *words = words
            sizes.append((width, height))
            del words[:width * height]
        return sizes

    @property
    def minimised(self):
        state = self._window.get_wm_state()
        return bool(state) and state.state == Xutil.IconicState

    def minimise(self):
        self._tell_manager("WM_CHANGE_STATE", Xutil.IconicState)

    @property
    def maximised(self):
        """Whether the window is maximised in both directions."""
        states = _property(self._display, self._window, "_NET_WM_STATE")
        return all(state in states for state in self._maximised_states())

    def maximise(self, on=True):
        self._tell_manager("_NET_WM_STATE", int(on), *self._maximised_states(), 2)

    def activate(self):
        self._tell_manager("_NET_ACTIVE_WINDOW", 2, X.CurrentTime)

    def close(self):
        """Asks the window manager to close the window, as the frame's close button does."""
        self._tell_manager("_NET_CLOSE_WINDOW", X.CurrentTime, 2)

    def move_resize(self, x, y, width, height):
        """Asks the window manager to move and resize the window, as a user does with its frame."""
        flags = 0xF << 8 | 2 << 12 | X.StaticGravity
        self._tell_manager("_NET_MOVERESIZE_WINDOW", flags, x, y, width, height)

    def close_button(self):
        """The pixel in the middle of the frame's close button, at the trailing end of the title bar."""
        x, y, width, _ = self.box
        top = self.frame[2]
        return x + width - top / 2, y - top / 2

    def _maximised_states(self):
        return [self._display.intern_atom(f"_NET_WM_STATE_MAXIMIZED_{direction}") for direction in ("HORZ", "VERT")]

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
