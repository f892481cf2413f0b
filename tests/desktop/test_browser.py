"""The Browser Patterns page: rows edited in place, written only when they are saved."""

from harness.case import DesktopCase
from harness.clipboard import Picture, pasted

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

    def test_typing_writes_nothing_and_the_button_saves_everything(self):
        program = self.open()
        program.click_on(self.editor(program, "/work/alpha"))
        program.type("*alpha*")
        self.expect(lambda: self.editor(program, "/work/alpha").text == "*alpha*",
                    "the typed text does not appear in the editor")
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
        self.expect(lambda: self.editor(program, "/work/alpha").text == "  *alpha*  \n\n",
                    "the typed text does not appear in the editor")
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
            self.expect(lambda: editor.text == text,
                        lambda: f"after {item} the text is {editor.text!r} instead of {text!r}")

    def test_a_paste_without_a_text_does_nothing(self):
        program = self.open()
        editor = program.click_on(self.editor(program, "/work/beta"))
        program.press("ctrl+a", "ctrl+v")  # nothing was ever copied
        self.expect_still_selected(program, editor)
        program.press("ctrl+a")
        picture = Picture()
        self.addCleanup(picture.close)
        program.press("ctrl+v")
        self.expect_still_selected(program, editor)

    def test_a_middle_click_without_a_text_does_nothing(self):
        program = self.open()
        editor = program.click_on(self.editor(program, "/work/beta"))
        for is_offered in (True, False):
            program.press("ctrl+a")
            self.expect(lambda: pasted("PRIMARY") == "https://b.example/*", "the selection is not offered")
            picture = Picture()  # takes the selection over from the editor
            try:
                if not is_offered:
                    picture.close()
                self.desktop.input.click(*program.middle(editor), 2)
                self.expect_still_selected(program, editor)
            finally:
                if is_offered:
                    picture.close()

    def expect_still_selected(self, program, editor):
        program.press("x")
        self.expect_text(editor, "x")
        program.press("ctrl+z")
        self.expect_text(editor, "https://b.example/*")

    def test_an_editor_keeps_text_and_history_when_focus_page_or_window_changes(self):
        program = self.open()
        editor = program.click_on(self.editor(program, "/work/alpha"))
        for leave, come_back in (
                (lambda: program.press("Tab"), lambda: program.press("shift+Tab")),
                (lambda: program.show("General"), lambda: program.show("Browser Patterns")),
                (lambda: program.window.minimise(), lambda: program.window.activate())):
            program.type("one")
            self.expect_text(editor, "one")
            leave()
            self.expect(lambda: not editor.has("focused") or not editor.has("showing"),
                        "the editor still shows and has the focus")
            come_back()
            self.expect(lambda: editor.has("showing"), "the editor does not show again")
            program.ready()
            self.expect_text(editor, "one")
            program.click_on(editor)
            program.press("ctrl+z")
            self.expect_text(editor, "")

    def expect_text(self, editor, text):
        self.expect(lambda: editor.text == text, lambda: f"the text is {editor.text!r} instead of {text!r}")

    def test_edits_are_lost_when_the_window_closes_unsaved(self):
        program = self.open()
        program.click_on(self.editor(program, "/work/alpha"))
        program.type("*alpha*")
        self.expect(lambda: self.editor(program, "/work/alpha").text == "*alpha*",
                    "the typed text does not appear in the editor")
        self.finish(program)
        self.expect_file(FILE, '{"/work/beta":["https://b.example/*"]}')


class Unreadable(DesktopCase):
    def test_an_unreadable_file_is_kept_beside_the_saved_one(self):
        unreadable = '{"/work/beta":["https://b.example/*",]}'
        self.write(FILE, unreadable)
        self.write(".vantle/sessions.json", '[{"cwd":"/work/beta"}]')
        program = self.start()
        program.show("Browser Patterns")
        self.assertEqual(program.find("text", "URL patterns for /work/beta").text, "")
        self.save(program, "*beta*", "*beta*")
        self.expect_file(f"{FILE}.unreadable", unreadable)
        self.save(program, "s", "*beta*s")
        self.finish(program)
        files = sorted(file.name for file in (self.home / FILE).parent.iterdir())
        self.assertEqual(files, ["browser-patterns.json", "browser-patterns.json.unreadable"])
        self.expect_file(f"{FILE}.unreadable", unreadable)
        self.assertEqual(self.agent.requests, [])

    def save(self, program, typed, text):
        editor = program.click("text", "URL patterns for /work/beta")
        program.type(typed)
        self.expect(lambda: editor.text == text, lambda: f"the text is {editor.text!r} instead of {text!r}")
        program.click("push button", "Save Patterns")
        self.expect_file(FILE, f'{{\n  "\\/work\\/beta" : [\n    "{text}"\n  ]\n}}')


class WithoutProjects(DesktopCase):
    def test_nothing_can_be_saved(self):
        program = self.start()
        page = program.show("Browser Patterns")
        self.assertEqual(page.find_all("text"), [])
        self.assertFalse(program.find("push button", "Save Patterns").has("enabled"))
        program.press("ctrl+s")
        self.finish(program)
        self.expect_no_file(FILE)
