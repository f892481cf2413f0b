"""The whole program under Valgrind: no error in memory and nothing lost from its start to its end."""

import pathlib

from harness.case import DesktopCase

SUPPRESSIONS = pathlib.Path(__file__).parent / "toolkit.supp"


class Valgrind(DesktopCase):
    def test_start_a_change_every_page_and_stop(self):
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
        status = program.ended()
        said = log.read_text()
        self.assertEqual((status, said), (0, ""), said[:8000])
