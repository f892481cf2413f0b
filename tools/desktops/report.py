"""Prints one line for each check."""

import contextlib


class Report:
    """The results of one desktop. `version` is the desktop's version, `scale` the scale factor of the present
    checks."""

    def __init__(self, desktop):
        self._desktop = desktop
        self.version = ""
        self.scale = 1
        self.failures = 0

    def check(self, what, seen, wanted):
        if seen == wanted:
            self._say(what, "ok", seen)
        else:
            self.failures += 1
            self._say(what, "FAILED", f"{seen} instead of {wanted}")

    def note(self, what, seen):
        """Prints a value that may differ between desktops."""
        self._say(what, "seen", seen)

    def check_frame(self, brightness, dark):
        """Checks that the frame is dark if the desktop draws `dark` frames on request; otherwise prints its
        brightness."""
        if dark:
            self.check("frame drawn dark", brightness < 0.5, True)
        else:
            self.note("brightness of the frame", f"{brightness:.0%}")

    def skip(self, what, reason):
        self._say(what, "not checked", reason)

    @contextlib.contextmanager
    def trying(self, what):
        """Reports an exception in the block as a failure, and continues after the block."""
        try:
            yield
        except Exception as error:
            self.failures += 1
            self._say(what, "FAILED", str(error) or repr(error))

    def _say(self, what, verdict, text):
        print(f"{self._desktop} {self.version}, scale {self.scale:g}: {what}: {verdict}: {text}", flush=True)
