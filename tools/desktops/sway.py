"""Sway, which has neither icons nor a minimised state: the tests hide a window on its scratchpad
instead of minimising it, and tile it instead of maximising it."""

import glob
import json
import os

from harness import compositor

from compositors import Compositor, Seen

_COMMANDS = {"minimise": "move scratchpad", "restore": "scratchpad show", "maximise": "floating disable",
             "unmaximise": "floating enable", "close": "kill"}


class Sway(Compositor):
    HEEDS_LEAST_SIZE = False
    MINIMISED, MAXIMISED = "hidden and back", "tiled and floating again"

    def __init__(self, _place, screen, scale, log):
        self._log = log
        self._compositor = compositor.Compositor(log)
        self.socket = self._compositor.socket
        self._tell(f"output HEADLESS-1 resolution {screen[0]}x{screen[1]} scale {scale}")
        self._tell('for_window [app_id=".*"] floating enable')

    def window(self, title):
        found = [node for node in _nodes(json.loads(self._tell("-t", "get_tree"))) if node["name"] == title]
        if not found:
            return None
        node, = found
        rect, title_bar = node["rect"], node["deco_rect"]["height"]
        box = rect["x"], rect["y"] - title_bar, rect["width"], rect["height"] + title_bar
        return Seen(node["name"], node["app_id"], box, not node["visible"], node["type"] == "con")

    def look(self, _title, report):
        report.skip("least size", "the compositor does not report it")

    def do(self, title, action):
        self._tell(f'[title="^{title}$"] {_COMMANDS[action]}')

    def take(self, picture):
        self._run("grim", str(picture))

    def close(self):
        self._compositor.close()

    def _tell(self, *message):
        control, = glob.glob(os.path.join(os.path.dirname(self.socket), "sway-ipc.*.sock"))
        return self._run("swaymsg", "-s", control, *message)


def _nodes(node):
    """The windows below a node of the tree."""
    if node.get("app_id"):
        yield node
    for child in node["nodes"] + node["floating_nodes"]:
        yield from _nodes(child)
