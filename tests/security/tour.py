"""A tour through the whole program that changes every setting."""

import os

MANIFEST = '''[[projects]]
name = "alpha"
path = "/srv/alpha"
'''

# The files that the program leaves behind after a tour, and those that it has written and removed during it.
FILES = {
    ".vantle/typeface.json", ".vantle/terminal-backend.json", ".vantle/green-screen.json", ".vantle/updates.json",
    ".vantle/shortcuts.json", ".local/state/vantle-settings/window",
}
REMOVED = {".claude/browser-patterns.json"}


def prepare(case):
    """Writes the files that give every page something to show."""
    case.write(".vantle/sessions.json", '[{"cwd":"/srv/alpha"}]')
    case.write("planning/projects.toml", MANIFEST)
    case.write(".vantle/planning.json", f'{{"root":"{case.home}/planning"}}')


def take(case, program):
    """Visits every page and uses its controls."""
    program.pick("Typeface", "System (SF Pro)")
    program.pick("Terminal", "Vantle Terminal")
    for switch in ("Marketing Recording Mode", "Automatic Updates", "Launch at Login"):
        program.click("check box", switch)
    program.click("push button", "Focus next notification shortcut")
    program.press("ctrl+shift+F9")
    case.expect(lambda: (case.home / ".vantle/shortcuts.json").is_file(), "the shortcut is not stored")
    program.show("Planning")
    program.click("push button", "Refresh")
    program.click("push button", "Choose planning root…")
    program.dialog("Planning Project Folder")
    program.press("Escape")
    program.expect_no_dialog()
    program.click("push button", "Clear planning root")
    program.show("Browser Patterns")
    program.click("push button", "Save Patterns")
    program.show("Data & Privacy")
    for button, action in (("Clear Sessions…", "Clear"), ("Clear Browser Patterns…", "Clear"),
                           ("Uninstall Hooks…", "Uninstall")):
        program.click("push button", button)
        program.click("push button", action)
    program.show("About")
    program.click("push button", "Copy path of Sessions")
    case.finish(program)


def files_left(home):
    return {os.path.relpath(os.path.join(folder, name), home) for folder, _, names in os.walk(home) for name in names}
