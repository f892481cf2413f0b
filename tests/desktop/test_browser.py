"""The Browser Patterns page: rows edited in place, written only when they are saved."""

from harness.case import DesktopCase

FILE = ".claude/browser-patterns.json"
BOTH = '{\n  "\\/work\\/alpha" : [\n    "*alpha*"\n  ],\n  "\\/work\\/beta" : [\n    "https:\\/\\/b.example\\/*"\n  ]\n}'


class BrowserPatterns(DesktopCase):
    def setUp(self):
        super().setUp()
        self.write(FILE, '{"/work/beta":["https://b.example/*"]}')
        self.write(".vantle/sessions.json", '[{"cwd":"/work/alpha"},{"cwd":"/work/beta"}]')

    def open(self):
        program = self.start()
        program.show("Browser Patterns")
        return program

    def editor(self, program, project):
        return program.find("text", f"URL patterns for {project}")

    def test_nothing_is_written_while_typing_and_everything_by_the_button(self):
        program = self.open()
        program.click_on(self.editor(program, "/work/alpha"))
        program.type("*alpha*")
        self.expect(lambda: self.editor(program, "/work/alpha").text == "*alpha*", "the text does not arrive")
        self.expect_file(FILE, '{"/work/beta":["https://b.example/*"]}')
        program.click("push button", "Save Patterns")
        self.expect_file(FILE, BOTH)
        self.finish(program)
        self.assertEqual(self.agent.requests, [])

        program = self.open()
        self.assertEqual(self.editor(program, "/work/alpha").text, "*alpha*")
        self.assertEqual(self.editor(program, "/work/beta").text, "https://b.example/*")

    def test_control_s_saves(self):
        program = self.open()
        program.click_on(self.editor(program, "/work/alpha"))
        program.type("  *alpha*  \n\n")
        self.expect(lambda: self.editor(program, "/work/alpha").text == "  *alpha*  \n\n", "the text does not arrive")
        program.press("ctrl+s")
        self.expect_file(FILE, BOTH)

    def test_tab_leaves_an_editor(self):
        program = self.open()
        editor = program.click_on(self.editor(program, "/work/alpha"))
        program.press("Tab")
        self.expect(lambda: program.focused() not in (None, editor), "Tab stays in the editor")
        self.assertEqual(editor.text, "")

    def test_the_edit_menu_works_on_the_editor(self):
        program = self.open()
        editor = program.click_on(self.editor(program, "/work/beta"))
        for item, text in (("Select All", "https://b.example/*"), ("Cut", ""), ("Paste", "https://b.example/*"),
                           ("Undo", ""), ("Redo", "https://b.example/*")):
            program.choose("Edit", item)
            self.expect(lambda: editor.text == text, lambda: f"after {item} the text is {editor.text!r}")

    def test_edits_are_lost_when_the_window_closes_unsaved(self):
        program = self.open()
        program.click_on(self.editor(program, "/work/alpha"))
        program.type("*alpha*")
        self.expect(lambda: self.editor(program, "/work/alpha").text == "*alpha*", "the text does not arrive")
        self.finish(program)
        self.expect_file(FILE, '{"/work/beta":["https://b.example/*"]}')


class Without(DesktopCase):
    def test_without_projects_nothing_can_be_saved(self):
        program = self.start()
        page = program.show("Browser Patterns")
        self.assertEqual(page.find_all("text"), [])
        self.assertFalse(program.find("push button", "Save Patterns").has("enabled"))
        program.press("ctrl+s")
        self.finish(program)
        self.expect_no_file(FILE)
