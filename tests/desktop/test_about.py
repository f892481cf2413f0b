"""The About page: the version, and a button for each path."""

from harness.case import DesktopCase
from harness.clipboard import pasted

FILES = {
    "Sessions": ".vantle/sessions.json",
    "Browser Patterns": ".claude/browser-patterns.json",
    "Planning Config": ".vantle/planning.json",
    "Green-Screen Mode": ".vantle/green-screen.json",
    "Automatic Updates": ".vantle/updates.json",
    "LaunchAgent": "Library/LaunchAgents/com.vantle.agent.plist",
}


class About(DesktopCase):
    def test_the_page_shows_the_product_and_the_version(self):
        page = self.start().show("About")
        for text in ("Vantle", "Liquid-Glass notification overlays for Claude Code.",
                     "Settings helper · version dev"):
            page.find("label", text)

    def test_each_button_copies_the_whole_path_beside_it(self):
        program = self.start()
        page = program.show("About")
        paths = {label: str(self.home / file) for label, file in FILES.items()}
        paths["Settings Helper"] = self.desktop.program
        for label, path in paths.items():
            page.find("label", path)
            program.click("push button", f"Copy path of {label}")
            self.expect(lambda: pasted() == path, lambda: f"{label} copies {pasted()!r} instead of {path!r}")
        self.finish(program)
