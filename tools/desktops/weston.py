"""Weston, which does not report its windows."""

import shutil

from compositors import Compositor

# Without this, the screen fades in from black at the start.
_CONFIGURATION = """[shell]
animation=none
startup-animation=none
"""


class Weston(Compositor):
    SCALES = 1, 2
    REPORTS_WINDOWS = False

    def __init__(self, folder, screen, scale, log):
        self._folder = folder
        configuration = folder / "weston.ini"
        configuration.write_text(_CONFIGURATION)
        width, height = screen
        # Here the size is in points. Only with --debug may a client take pictures.
        super().__init__(f"vantle-weston-{scale:g}", [
            "weston", "--backend=headless-backend.so", "--use-pixman", f"--config={configuration}",
            "--idle-time=0", "--debug", f"--scale={scale}", f"--width={width // scale}", f"--height={height // scale}",
            f"--socket=vantle-weston-{scale:g}"], log)

    def take(self, picture):
        """The tool writes a file with a name of its own choice into its working directory."""
        self._run("sh", "-c", 'cd "$1" && weston-screenshooter', "sh", str(self._folder))
        taken, = self._folder.glob("wayland-screenshot-*.png")
        shutil.move(taken, picture)
