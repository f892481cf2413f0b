"""The folder dialog of a real portal, over the window of the program."""

import json
import os
import signal
import subprocess

from harness import processes
from harness.desktop import Desktop
from harness.program import Program
from harness.waiting import eventually

import x11
from pictures import take_settled

_PORTAL = "/usr/libexec/xdg-desktop-portal"


def look(backend, program, folder, pictures, report):
    desktop = Desktop(program, folder)
    servers = []
    chooser = None
    try:
        desktop.open(*x11.SCREEN)
        report.version = backend.version
        os.environ["XDG_CURRENT_DESKTOP"] = backend.kind
        servers = [processes.start([command], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL) for command in (backend.command[0], _PORTAL)]
        chooser = _Chooser(desktop, folder, servers[0], pictures / f"{backend.name}.png", report)
        with report.trying("a run of the program"):
            chooser.open_page()
            chooser.try_dismissals()
            chooser.try_choice()
            chooser.try_stopped_backend()
    finally:
        if chooser:
            chooser.close()
        for server in reversed(servers):
            server.send_signal(signal.SIGCONT)
            processes.end(server)
        desktop.close()


class _Chooser:
    """The program on its Planning page, and the dialog that the backend shows for it."""

    def __init__(self, desktop, folder, backend, picture, report):
        self._desktop = desktop
        self._backend = backend
        self._picture = picture
        self._report = report
        self._home = folder / "home-portal"
        (self._home / "plan").mkdir(parents=True)
        self._program = Program(desktop, self._home)

    def open_page(self):
        self._program.ready()
        self._program.show("Planning")

    def close(self):
        self._program.kill()

    def try_dismissals(self):
        for dismissal, dismiss in (("by Escape", self._press_escape), ("by its frame", self._close_frame)):
            dialog = self._open()
            self._report.check("belongs to the window", dialog.parent, self._program.window.identifier)
            dismiss(dialog)
            self._expect_input()
            self._report.check(f"dialogs after a dismissal {dismissal}", len(self._dialogs()), 0)
        self._report.check("written after dismissals", (self._home / ".vantle/planning.json").exists(), False)

    def try_choice(self):
        self._open()
        self._program.type("/")  # opens the dialog's text field for a path
        shown = self._desktop.accessibility.program(self._backend.pid)
        shown.find("text").set_text(str(self._home / "plan"))
        self._program.press("Return")
        self._expect_input()
        root = json.loads((self._home / ".vantle/planning.json").read_text())["root"]
        self._report.check("chosen root", root, str(self._home / "plan"))

    def try_stopped_backend(self):
        self._open()
        self._backend.send_signal(signal.SIGSTOP)
        self._program.window.close()
        self._report.check("end beside a stopped backend", (self._program.wait(), self._program.output), (0, ""))

    def _open(self):
        self._program.press("ctrl+o")
        dialog, = eventually(self._dialogs, "the portal shows no dialog")
        eventually(lambda: self._desktop.windows.active == dialog.identifier, "the dialog is not active")
        take_settled(x11.take_screen, self._picture)
        return dialog

    def _dialogs(self):
        return self._desktop.windows.of(self._backend.pid)

    def _press_escape(self, _dialog):
        self._program.press("Escape")

    def _close_frame(self, dialog):
        dialog.close()

    def _expect_input(self):
        choose = self._program.find("push button", "Choose planning root…")
        eventually(lambda: choose.has("enabled") and self._program.frame.has("active"), "the page stays disabled")
