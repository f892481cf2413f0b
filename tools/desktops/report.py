"""One line for each thing that was looked at."""

import contextlib


class Report:
    """What was seen on one desktop. `version` is that desktop's, `scale` the scale factor that it is seen at."""

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
        """For what differs between desktops and is right either way."""
        self._say(what, "seen", seen)

    def check_frame(self, brightness, dark):
        """Of a desktop whose frames are `dark` where that is asked for, the frame has to be."""
        if dark:
            self.check("frame drawn dark", brightness < 0.5, True)
        else:
            self.note("brightness of the frame", f"{brightness:.0%}")

    def skip(self, what, reason):
        self._say(what, "not checked", reason)

    @contextlib.contextmanager
    def trying(self, what):
        """Reports an exception of the block as a failure, and goes on."""
        try:
            yield
        except Exception as error:
            self.failures += 1
            self._say(what, "FAILED", str(error) or repr(error))

    def _say(self, what, verdict, text):
        print(f"{self._desktop} {self.version}, scale {self.scale:g}: {what}: {verdict}: {text}", flush=True)
