"""Counts key presses and repeats, with the X server's record extension."""

import threading

from Xlib import X, display
from Xlib.ext import record
from Xlib.protocol import rq


class Presses:
    """Counts presses of every key, repeats included, from creation to close()."""

    def __init__(self):
        self.count = 0
        self._control = display.Display()
        self._connection = display.Display()
        range_ = {"core_requests": (0, 0), "core_replies": (0, 0), "ext_requests": (0, 0, 0, 0),
                  "ext_replies": (0, 0, 0, 0), "delivered_events": (0, 0), "device_events": (X.KeyPress, X.KeyPress),
                  "errors": (0, 0), "client_started": False, "client_died": False}
        self._context = self._control.record_create_context(0, [record.AllClients], [range_])
        self._control.sync()
        self._thread = threading.Thread(target=self._connection.record_enable_context,
                                        args=(self._context, self._count), daemon=True)
        self._thread.start()

    def close(self):
        self._control.record_disable_context(self._context)
        self._control.sync()
        self._thread.join()
        self._connection.close()
        self._control.record_free_context(self._context)
        self._control.close()

    def _count(self, reply):
        if reply.category != record.FromServer:
            return
        data = reply.data
        while data:
            _, data = rq.EventField(None).parse_binary_value(data, self._connection.display, None, None)
            self.count += 1
