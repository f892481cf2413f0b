"""A Wayland compositor without a screen, and a keyboard for it: a client that speaks the compositor's protocol for
virtual keyboards, so that keys can be pressed by the kernel's codes."""

import contextlib
import itertools
import os
import shutil
import socket
import struct
import subprocess
import tempfile
import time

from . import processes
from .waiting import eventually

_CONFIGURATION = "xwayland disable\noutput HEADLESS-1 resolution 1280x900\n"

# For each modifier, the kernel's code of its key and its bit in the state that the keyboard reports.
_MODIFIERS = {"ctrl": (29, 4), "shift": (42, 1), "alt": (56, 8), "super": (125, 64), "altgr": (100, 128)}


class Compositor:
    """A compositor that runs until close(). `socket` is the value of WAYLAND_DISPLAY for its clients."""

    def __init__(self, log):
        self._folder = tempfile.mkdtemp(prefix="vantle-wayland-")
        configuration = os.path.join(self._folder, "configuration")
        with open(configuration, "w") as file:
            file.write(_CONFIGURATION)
        command = ["sway", "-c", configuration]
        # Sway refuses to run as root.
        if os.getuid() == 0:
            os.chown(self._folder, 65534, 65534)
            command = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", *command]
        environment = {"PATH": os.environ["PATH"], "HOME": self._folder, "XDG_RUNTIME_DIR": self._folder,
                       "WLR_BACKENDS": "headless", "WLR_RENDERER": "pixman", "WLR_LIBINPUT_NO_DEVICES": "1"}
        self._process = processes.start(command, env=environment, stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        names = lambda: [name for name in os.listdir(self._folder)
                         if name.startswith("wayland-") and not name.endswith(".lock")]
        self.socket = os.path.join(self._folder, eventually(names, "the compositor does not start")[0])

    def close(self):
        processes.end(self._process)
        shutil.rmtree(self._folder, ignore_errors=True)


class Keyboard:
    """A virtual keyboard with a layout that setxkbmap knows."""

    # The ids of the display, which is fixed, and of the registry, the first object that is created.
    _DISPLAY, _REGISTRY = 1, 2

    def __init__(self, compositor):
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.connect(compositor.socket)
        self._received = b""
        self._numbers = itertools.count(3)
        self._globals = {}
        self._send(self._DISPLAY, 1, struct.pack("I", self._REGISTRY))
        self._wait()
        seat = self._bind("wl_seat")
        manager = self._bind("zwp_virtual_keyboard_manager_v1")
        self._keyboard = next(self._numbers)
        self._send(manager, 0, struct.pack("II", seat, self._keyboard))
        self.use_layout("us")

    def use_layout(self, *layout):
        names = subprocess.run(["setxkbmap", "-print", "-layout", *layout], check=True, capture_output=True).stdout
        text = subprocess.run(["xkbcomp", "-xkb", "-w0", "-", "-"], input=names, check=True,
                              capture_output=True).stdout + b"\0"
        file = os.memfd_create("keymap")
        os.write(file, text)
        self._send(self._keyboard, 0, struct.pack("II", 1, len(text)), [file])
        os.close(file)
        self._report(0)
        self._wait()

    def press_code(self, code, *modifiers):
        """Presses and releases a key by the kernel's code, with modifiers held."""
        with self.holding(code, *modifiers):
            pass

    @contextlib.contextmanager
    def holding(self, code, *modifiers):
        """Holds a key down during the block. The program that receives it repeats it by its own timer."""
        state = 0
        for key, bit in (_MODIFIERS[name] for name in modifiers):
            self._key(key, True)
            self._report(state := state | bit)
        self._key(code, True)
        self._wait()
        try:
            yield
        finally:
            self._key(code, False)
            for key, bit in (_MODIFIERS[name] for name in reversed(modifiers)):
                self._key(key, False)
                self._report(state := state & ~bit)
            self._wait()

    def close(self):
        self._socket.close()

    def _key(self, code, down):
        now = int(time.monotonic() * 1000) & 0xFFFFFFFF
        self._send(self._keyboard, 1, struct.pack("III", now, code, down))

    def _report(self, held):
        self._send(self._keyboard, 2, struct.pack("IIII", held, 0, 0, 0))

    def _bind(self, interface):
        number = next(self._numbers)
        name = interface.encode() + b"\0"
        body = struct.pack("II", self._globals[interface], len(name)) + name + bytes(-len(name) % 4)
        self._send(self._REGISTRY, 0, body + struct.pack("II", 1, number))
        return number

    def _send(self, target, operation, body, files=()):
        head = struct.pack("II", target, (8 + len(body)) << 16 | operation)
        socket.send_fds(self._socket, [head + body], files)

    def _wait(self):
        """Waits until the compositor has handled everything that was sent."""
        callback = next(self._numbers)
        self._send(self._DISPLAY, 0, struct.pack("I", callback))
        while True:
            target, operation, body = self._next()
            if target == self._DISPLAY and operation == 0:
                raise RuntimeError(f"the compositor reports an error: {body}")
            if target == self._REGISTRY and operation == 0:
                name, length = struct.unpack("II", body[:8])
                self._globals[body[8:8 + length - 1].decode()] = name
            if target == callback:
                return

    def _next(self):
        self._receive(8)
        target, word = struct.unpack("II", self._received[:8])
        size = word >> 16
        self._receive(size)
        body, self._received = self._received[8:size], self._received[size:]
        return target, word & 0xFFFF, body

    def _receive(self, size):
        while len(self._received) < size:
            more = self._socket.recv(65536)
            if not more:
                raise RuntimeError("the compositor has closed the connection")
            self._received += more
