"""Lists of ten thousand projects, and edits in rows that are then scrolled or switched out of view."""

import json

from harness.case import DesktopCase

PATTERNS = ".claude/browser-patterns.json"


class LongLists(DesktopCase):
    def editor(self, program, root):
        return program.find("text", f"URL patterns for {root}")

    def saved(self):
        """The patterns in the file; None while it is being written."""
        try:
            return json.loads((self.home / PATTERNS).read_text())
        except ValueError:
            return None

    def test_only_the_patterns_in_view_are_exposed_and_all_are_saved(self):
        patterns = {f"/work/p{number}": [f"host{number}/*"] for number in range(10000, 20000)}
        self.write(PATTERNS, json.dumps(patterns))
        program = self.start()
        page = program.show("Browser Patterns")
        self.assertLess(len(page.find_all("text")), 20)
        program.click_on(self.editor(program, "/work/p10000"))
        program.press("ctrl+Home")
        program.type("new")
        self.expect(lambda: self.editor(program, "/work/p10000").text == "newhost10000/*",
                    "the typed text does not appear in the editor")
        for number in range(10001, 10009):
            program.press("Tab")
            self.expect(lambda: self.editor(program, f"/work/p{number}").has("focused"), f"Tab does not reach {number}")
        program.press("ctrl+s")
        patterns["/work/p10000"] = ["newhost10000/*"]
        self.expect(lambda: self.saved() == patterns, "not all rows are saved")
        for number in reversed(range(10000, 10008)):
            program.press("shift+Tab")
            self.expect(lambda: self.editor(program, f"/work/p{number}").has("focused"),
                        f"Shift+Tab does not reach {number}")
        program.press("ctrl+z")
        self.expect(lambda: self.editor(program, "/work/p10000").text == "host10000/*",
                    lambda: f"after undo the text is {self.editor(program, '/work/p10000').text!r}")
        self.finish(program)

    def test_only_the_planning_projects_in_view_are_exposed_and_tab_reaches_more(self):
        manifest = "".join(f'[[projects]]\nname = "P{number}"\n' for number in range(10000, 20000))
        self.write("plan/projects.toml", manifest)
        self.write(".vantle/planning.json", f'{{"root":"{self.home}/plan"}}')
        program = self.start()
        page = program.show("Planning")
        self.assertLess(len(page.find_all("push button")), 30)
        program.focus("push button", "Actions for P10000")
        for number in range(10001, 10016):
            program.press("Tab")
            self.expect(lambda: program.find("push button", f"Actions for P{number}").has("focused"),
                        f"Tab does not reach {number}")
        self.finish(program)


class Editors(DesktopCase):
    def setUp(self):
        super().setUp()
        self.write(PATTERNS, '{"/work/app":["app.example/*"]}')

    def open(self):
        program = self.start()
        program.show("Browser Patterns")
        return program, program.find("text", "URL patterns for /work/app")

    def test_saving_and_closing_at_once_loses_nothing(self):
        program, editor = self.open()
        program.click_on(editor)
        program.press("ctrl+a", "x")
        self.expect(lambda: editor.text == "x", lambda: f"the text is {editor.text!r} instead of “x”")
        program.press("ctrl+s", "ctrl+w")
        self.expect_end(program)
        self.expect_file(PATTERNS, '{\n  "\\/work\\/app" : [\n    "x"\n  ]\n}')

    def test_edits_and_their_history_are_kept_during_a_visit_to_another_page(self):
        program, editor = self.open()
        program.click_on(editor)
        program.press("ctrl+Home")
        program.type("kept")
        self.expect(lambda: editor.text == "keptapp.example/*", lambda: f"the text is {editor.text!r}")
        program.show("Data & Privacy")
        program.press("ctrl+s")
        program.show("Browser Patterns")
        self.expect_file(PATTERNS, '{"/work/app":["app.example/*"]}')
        program.click_on(program.find("text", "URL patterns for /work/app"))
        program.press("ctrl+z")
        self.expect(lambda: program.find("text", "URL patterns for /work/app").text == "app.example/*",
                    "the edit is not undone")

    def test_an_editor_accepts_text_from_assistive_technology(self):
        program, editor = self.open()
        editor.set_text("spoken.example/*")
        program.click("push button", "Save Patterns")
        self.expect_file(PATTERNS, '{\n  "\\/work\\/app" : [\n    "spoken.example\\/*"\n  ]\n}')


class WithoutAFileManager(DesktopCase):
    def test_the_parent_folder_of_the_root_is_opened(self):
        self.write("bin/xdg-open", f'#!/bin/sh\necho "$1" >{self.home}/opened\n')
        (self.home / "bin/xdg-open").chmod(0o755)
        self.write(".vantle/planning.json", f'{{"root":"{self.home}/plan"}}')
        program = self.start(environment={"PATH": f"{self.home}/bin:/usr/bin:/bin"})
        program.show("Planning")
        program.click("push button", "Reveal in Finder")
        self.expect_file("opened", f"file://{self.home}\n")
