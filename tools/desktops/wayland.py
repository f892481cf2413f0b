"""The program under a Wayland compositor."""

import pathlib
import shutil

from harness.desktop import Desktop
from harness.program import WINDOW, Program
from harness.waiting import eventually

from expected import ENTRY, FIRST_SIZE, LEAST_SIZE, SCALES, SCREEN, pixels
from pictures import brightness, take_settled


def look(described, program, folder, pictures, report):
    desktop = Desktop(program, folder)
    try:
        desktop.open(*SCREEN)
        report.version = described.version
        _install_entry(desktop)
        for report.scale in SCALES:
            if report.scale in described.compositor.SCALES:
                with report.trying("a run of the program"):
                    _look_at_scale(described, desktop, pictures / f"{described.name}-{report.scale:g}.png", report)
            else:
                report.skip("scale", "the compositor has whole scales only")
    finally:
        desktop.close()


def _install_entry(desktop):
    """Installs the desktop entry and the icon for the user. The entry names the program by its path, as compositors
    ignore an entry whose program does not exist."""
    home = desktop.folder / "home"
    root = pathlib.Path(__file__).resolve().parents[2]
    entries, icons = home / ".local/share/applications", home / ".local/share/icons/hicolor/scalable/apps"
    for folder in (entries, icons):
        folder.mkdir(parents=True)
    entry = (root / f"packaging/linux/{ENTRY}.desktop").read_text()
    (entries / f"{ENTRY}.desktop").write_text(entry.replace("Exec=vantle-settings", f"Exec={desktop.program}"))
    shutil.copy(root / "packaging/icon/vantle-settings.svg", icons / f"{ENTRY}.svg")


def _look_at_scale(described, desktop, picture, report):
    folder = desktop.folder / f"scale-{report.scale:g}"
    folder.mkdir()
    (folder / "home").mkdir()
    with open(folder / "compositor.log", "wb") as log:
        compositor = described.compositor(folder, pixels(SCREEN, report.scale), report.scale, log)
    try:
        program = Program(desktop, folder / "home", environment={
            "WAYLAND_DISPLAY": compositor.socket, "DISPLAY": "", "XDG_CURRENT_DESKTOP": described.kind})
        try:
            _look_at_program(compositor, program, picture, report)
        finally:
            program.kill()
    finally:
        compositor.close()


def _look_at_program(compositor, program, picture, report):
    program.find("list", "Sections")
    report.check("first size", tuple(program.frame.box[2:]), FIRST_SIZE)
    if not compositor.REPORTS_WINDOWS:
        report.skip("title, app id, states", "the compositor does not report them")
        take_settled(compositor.take, picture)
        program.find_in_menu("Window", "Close").act()
        return report.check("end", (program.wait(), program.output), (0, ""))

    seen = lambda: compositor.window(WINDOW)
    eventually(seen, "the compositor knows no window of that title")
    report.check("title", seen().title, WINDOW)
    report.check("app id", seen().app, ENTRY)
    report.note("size with its frame", seen().box[2:])
    compositor.look(WINDOW, report)
    _try_states(compositor, seen, program, report)
    if compositor.takes_pictures():
        _take(compositor, seen().box, picture, report)
    else:
        report.skip("picture", "the compositor takes none here")
    if compositor.HEEDS_LEAST_SIZE:
        _try_least_size(compositor, program, report)
    compositor.do(WINDOW, "close")
    report.check("end", (program.wait(), program.output), (0, ""))


def _take(compositor, box, picture, report):
    with report.trying("picture"):
        take_settled(compositor.take, picture)
        x, y, width, height = pixels(box, report.scale)
        bar = height - pixels(FIRST_SIZE, report.scale)[1]
        report.check_frame(brightness(picture, x, y, width, bar), compositor.DARK)


def _try_least_size(compositor, program, report):
    with report.trying("least size"):
        compositor.do(WINDOW, "shrink")
        eventually(lambda: tuple(program.frame.box[2:]) == LEAST_SIZE,
                   lambda: f"{tuple(program.frame.box[2:])} instead of {LEAST_SIZE}")
        report.check("least size", tuple(program.frame.box[2:]), LEAST_SIZE)


def _try_states(compositor, seen, program, report):
    before = seen().box[2:]
    with report.trying(compositor.MINIMISED):
        compositor.do(WINDOW, "minimise")
        eventually(lambda: seen().minimised, "the window is not minimised")
        compositor.do(WINDOW, "restore")
        eventually(lambda: not seen().minimised, "the window stays minimised")
        report.check(compositor.MINIMISED, seen().box[2:], before)
    with report.trying(compositor.MAXIMISED):
        compositor.do(WINDOW, "maximise")
        eventually(lambda: seen().maximised and program.frame.box[2] > FIRST_SIZE[0],
                   lambda: f"the window is not maximised: {seen()}")
        compositor.do(WINDOW, "unmaximise")
        eventually(lambda: not seen().maximised and seen().box[2:] == before,
                   lambda: f"{seen().box[2:]} instead of {before}")
        report.check(compositor.MAXIMISED, tuple(program.frame.box[2:]), FIRST_SIZE)
