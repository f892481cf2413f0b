"""The program under a window manager of X11."""

import os
import pathlib
import subprocess

from harness.desktop import Desktop
from harness.program import WINDOW, Program
from harness.waiting import eventually

from expected import FIRST_SIZE, LEAST_SIZE, SCALES, icons, pixels
from pictures import brightness, take_settled

# In pixels: only the program has a scale factor here. Mutter maximises a window that would fill four fifths of the
# screen.
SCREEN = 2160, 1728
DARK_COLOURS = pathlib.Path("/usr/share/color-schemes/BreezeDark.colors")


def look(manager, program, folder, pictures, report):
    desktop = Desktop(program, folder, manager.command)
    try:
        desktop.open(*SCREEN)
        report.version = manager.version
        os.environ["XDG_CURRENT_DESKTOP"] = manager.kind
        for report.scale in SCALES:
            with report.trying("a run of the program"):
                _look_at_scale(manager, desktop, pictures / f"{manager.name}-{report.scale:g}.png", report)
    finally:
        desktop.close()


def _look_at_scale(manager, desktop, picture, report):
    scale = report.scale
    home = desktop.folder / f"home-{scale:g}"
    home.mkdir()
    program = Program(desktop, home, scale=scale)
    try:
        program.ready()
        window = program.window
        report.check("first size", window.box[2:], pixels(FIRST_SIZE, scale))
        report.check("least size", window.minimum, pixels(LEAST_SIZE, scale))
        report.check("title", window.title, WINDOW)
        report.check("class", window.program, "vantle-settings")
        with report.trying("icons"):
            # The icons are set after the first frame.
            eventually(lambda: window.icons, "the window has no icons")
            report.check("icons", window.icons, icons(scale))
        colours = str(DARK_COLOURS) if DARK_COLOURS.exists() else ""
        report.check("frame asked for", (window.variant, window.colours), ("dark", colours))
        _try_states(program, window, report)
        _take(manager, window, picture, report)
        window.close()
        report.check("end", (program.wait(), program.output), (0, ""))
    finally:
        program.kill()


def _try_states(program, window, report):
    before = window.box
    with report.trying("minimised and back"):
        window.minimise()
        eventually(lambda: window.minimised, "the window is not minimised")
        window.activate()
        eventually(lambda: not window.minimised, "the window stays minimised")
        program.ready()
        report.check("minimised and back", window.box, before)
    with report.trying("maximised and back"):
        window.maximise()
        eventually(lambda: window.maximised and _fills(window, report.scale),
                   lambda: f"the window is not maximised: {window.box}")
        window.maximise(False)
        eventually(lambda: not window.maximised and window.box == before,
                   lambda: f"{window.box} instead of {before}")
        report.check("maximised and back", window.box, before)


def _fills(window, scale):
    """The toolkit asks for sizes of whole points, so a pixel may be left over."""
    left, right, top, bottom = window.frame
    _, _, width, height = window.box
    rest = SCREEN[0] - width - left - right, SCREEN[1] - height - top - bottom
    return all(0 <= length < round(scale) for length in rest)


def take_screen(picture):
    subprocess.run(["import", "-window", "root", "-define", "png:compression-level=1", str(picture)], check=True,
                   timeout=60)


def _take(manager, window, picture, report):
    take_settled(take_screen, picture)
    x, y, width, _ = window.box
    bar = window.frame[2]
    if bar == 0:
        return report.skip("frame", "it draws none")
    report.check_frame(brightness(picture, x, y - bar, width, bar), manager.dark)
