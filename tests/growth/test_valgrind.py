"""The program under Valgrind: no memory error and no lost memory from its start to its end."""

import pathlib

from harness.case import DesktopCase

SUPPRESSIONS = pathlib.Path(__file__).parent / "toolkit.supp"


class Valgrind(DesktopCase):
    def test_starting_a_change_every_page_and_ending(self):
        log = self.home.parent / f"{self.home.name}.valgrind"
        program = self.start(tool=(
            "valgrind", "--quiet", "--error-exitcode=99", "--leak-check=full", "--show-leak-kinds=definite",
            "--errors-for-leak-kinds=definite", "--num-callers=30", f"--suppressions={SUPPRESSIONS}",
            f"--log-file={log}"))
        program.click("check box", "Marketing Recording Mode")
        self.expect_requests("/settings/reload-green-screen")
        for page in program.pages():
            program.show(page)
        program.window.close()
        status = program.wait()
        report = log.read_text()
        self.assertEqual((status, report), (0, ""), report[:8000])
