"""The Planning page: the root is chosen, cleared and revealed; its projects are listed with their sessions."""

from harness.case import DesktopCase
from harness.clipboard import pasted
from harness.drag import Drag
from harness.service import FileManager

FILE = ".vantle/planning.json"
MANIFEST = """[[projects]]
name = "Alpha"
path = "{home}/alpha"
todo_path = "{home}/alpha/TODO.toml"

[[projects]]
name = "Gone"
path = "{home}/gone"
"""


class Planning(DesktopCase):
    @classmethod
    def setUpClass(cls):
        cls.files = FileManager()

    def setUp(self):
        super().setUp()
        self.files.shown.clear()
        self.plan = self.home / "plan"
        self.write("plan/projects.toml", MANIFEST.format(home=self.home))
        self.write("alpha/TODO.toml", "")
        self.write(".vantle/sessions.json", f'[{{"cwd":"{self.home}/alpha"}},{{"cwd":"{self.home}/alpha/src"}}]')

    def stored(self):
        escaped = str(self.plan).replace("/", "\\/")
        return f'{{\n  "root" : "{escaped}"\n}}'

    def open(self, root=True, **options):
        if root:
            self.write(FILE, self.stored())
        program = self.start(**options)
        program.show("Planning")
        return program

    def open_menu(self, program, project, *names):
        """Opens a project's menu, checks that it has exactly these items, and returns them by name."""
        program.click("push button", f"Actions for {project}")
        items = {}
        for name in (*names, names[0]):
            program.press("Down")
            items[name] = self.expect(lambda: program.last_focused(name),
                                      lambda: f"{program.last_focused()} has the focus instead of {name}")
        return items

    def test_a_root_is_chosen_in_the_dialog(self):
        program = self.open(root=False)
        program.find("label", "Not set")
        program.click("push button", "Choose planning root…")
        self.enter_folder(program, self.plan)
        program.press("Return")
        self.expect_file(FILE, self.stored())
        self.expect_requests("/settings/reload-planning")
        program.find("panel", "Alpha")

    def test_control_o_opens_the_dialog_and_escape_changes_nothing(self):
        program = self.open()
        program.press("ctrl+o")
        program.dialog("Planning Project Folder")
        program.press("Escape")
        program.expect_no_dialog()
        self.finish(program)
        self.expect_file(FILE, self.stored())
        self.assertEqual(self.agent.requests, [])

    def drag(self, program, *paths):
        """Drags paths over the row of the root. Returns the drag, and the name of the action that a drop would have."""
        drag = Drag(*paths)
        self.addCleanup(drag.close)
        point = program.middle(program.find("label", "Not set"))
        return drag, drag.over(program.window.identifier, *point)

    def test_a_folder_that_another_program_drops_on_the_row_becomes_the_root(self):
        program = self.open(root=False)
        drag, action = self.drag(program, self.plan)
        self.assertEqual(action, "XdndActionLink")
        self.assertEqual(drag.drop(), "XdndActionLink")
        self.expect_file(FILE, self.stored())
        self.expect_requests("/settings/reload-planning")
        program.find("panel", "Alpha")
        self.finish(program)

    def test_a_file_and_several_folders_cannot_be_dropped_on_the_row(self):
        program = self.open(root=False)
        for paths in [self.plan / "projects.toml"], [self.plan, self.home / "alpha"]:
            drag, action = self.drag(program, *paths)
            self.assertIsNone(action, paths)
            drag.leave()
        self.assertIsNotNone(self.drag(program, self.plan)[1], "a single folder is not accepted either")
        self.finish(program)
        self.expect_no_file(FILE)

    def test_clearing_removes_the_file_and_the_list(self):
        program = self.open()
        program.click("push button", "Clear planning root")
        self.expect(lambda: not (self.home / FILE).exists(), "the file is not removed")
        self.expect_requests("/settings/reload-planning")
        program.find("label", "Not set")
        self.expect(lambda: not program.shows("panel", "Alpha"), "the list still shows")

    def shown_files(self):
        return f"the file manager was asked to show {self.files.shown}"

    def test_the_root_is_revealed(self):
        program = self.open()
        program.click("push button", "Reveal in Finder")
        self.expect(lambda: self.files.shown == [f"file://{self.plan}"], self.shown_files)

    def test_projects_show_their_sessions_and_whether_their_folder_exists(self):
        program = self.open()
        alpha, gone = program.find("panel", "Alpha"), program.find("panel", "Gone")
        self.assertEqual(alpha.description, f"{self.home}/alpha")
        self.assertEqual(gone.description, f"{self.home}/gone, missing")
        alpha.find("label", "2 notch sessions with a cwd under this project")
        gone.find("label", "No notch sessions")
        program.find("label", "2 projects · 2 matched sessions")

    def test_a_folder_that_appears_changes_the_descriptions_once(self):
        program = self.open()
        row, actions = program.find("panel", "Gone"), program.find("push button", "Actions for Gone")
        changed = self.desktop.accessibility.changed

        def open_and_close_menu(*items):
            self.open_menu(program, "Gone", *items)
            program.press("Escape")
            self.expect(lambda: program.focused() == actions, "the menu is still open")

        open_and_close_menu("Copy Path")
        changed.clear()
        (self.home / "gone").mkdir()
        for _ in range(2):
            open_and_close_menu("Reveal Project in Finder", "Copy Path")
        self.assertEqual(row.description, f"{self.home}/gone")
        self.assertEqual(actions.description, f"{self.home}/gone, No notch sessions")
        self.assertEqual([changed.count(control) for control in (row, actions)], [1, 1])

    def test_refreshing_reads_the_manifest_again(self):
        program = self.open()
        self.write("plan/projects.toml", f'[[projects]]\nname = "Later"\npath = "{self.home}/alpha"\n')
        program.click("push button", "Refresh")
        program.find("panel", "Later")
        program.find("label", "1 project · 2 matched sessions")
        self.assertEqual(self.agent.requests, [])

    ALL = "Reveal Project in Finder", "Open TODO.toml", "Reveal TODO in Finder", "Copy Path"

    def test_a_project_and_its_todo_are_revealed(self):
        program = self.open()
        program.click_in_popup(self.open_menu(program, "Alpha", *self.ALL)["Reveal Project in Finder"])
        self.expect(lambda: self.files.shown == [f"file://{self.home}/alpha"], self.shown_files)
        program.click_in_popup(self.open_menu(program, "Alpha", *self.ALL)["Reveal TODO in Finder"])
        self.expect(lambda: self.files.shown[1:] == [f"file://{self.home}/alpha/TODO.toml"], self.shown_files)

    def test_a_projects_todo_is_opened_with_the_default_application(self):
        self.write("bin/xdg-open", f'#!/bin/sh\necho "$1" >{self.home}/opened\n')
        (self.home / "bin/xdg-open").chmod(0o755)
        program = self.open(environment={"PATH": f"{self.home}/bin:/usr/bin:/bin"})
        program.click_in_popup(self.open_menu(program, "Alpha", *self.ALL)["Open TODO.toml"])
        self.expect_file("opened", f"file://{self.home}/alpha/TODO.toml\n")

    def test_the_only_action_for_a_missing_project_copies_its_path(self):
        program = self.open()
        self.open_menu(program, "Gone", "Copy Path")
        program.press("Return")
        self.expect(lambda: pasted() == f"{self.home}/gone", lambda: f"the clipboard has {pasted()!r}")

    def enter_folder(self, program, folder):
        dialog = program.dialog("Planning Project Folder")
        self.expect(lambda: program.focused() and program.focused().role == "text",
                    "no text field for a path has the focus")
        program.press("ctrl+a")
        program.type(str(folder))
        self.expect(lambda: program.focused().text == str(folder), "the typed path does not appear in the text field")
        return dialog


class Empty(DesktopCase):
    def test_a_root_without_a_manifest_shows_that_it_has_none(self):
        self.write(FILE, f'{{"root":"{self.home}/plan"}}')
        program = self.start()
        program.show("Planning")
        program.find("label", "projects.toml not found")
        self.assertFalse(program.shows("push button", "Refresh"))

    def test_a_manifest_without_projects_shows_that_it_has_none(self):
        self.write(FILE, f'{{"root":"{self.home}/plan"}}')
        self.write("plan/projects.toml", "# nothing yet\n")
        program = self.start()
        program.show("Planning")
        program.find("label", "No projects parsed")
