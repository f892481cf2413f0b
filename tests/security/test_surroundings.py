"""The system calls of the running program while every setting is changed: files, connections and processes."""

import os
import pathlib
import re
import stat
import sys

from harness.case import DesktopCase

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import tour  # noqa: E402
from systemcalls import Trace  # noqa: E402

MASK = 0o027
OPENING = ("open", "openat", "openat2", "creat")
MOVING = ("rename", "renameat", "renameat2", "link", "linkat", "symlink", "symlinkat")
AGENT = re.compile(r'connect\(.*\{sa_family=AF_INET, sin_port=htons\(18484\), sin_addr=inet_addr\("127\.0\.0\.1"\)\}')
# A call with a relative path, except the name with which the toolkit looks for a resource that does not exist.
RELATIVE = re.compile(r'\w+\((AT_FDCWD(<[^>]*>)?, )?"(?!/|:/non-existent")[^"]+"')


class Surroundings(DesktopCase):
    def test_a_tour_through_the_program_uses_only_the_documented_files_and_port(self):
        tour.prepare(self)
        before = tour.files_left(self.home)
        trap = self.set_trap()
        trace = Trace(self.home.parent / f"{self.home.name}.trace", "%network,%file,execve,execveat")
        mask = os.umask(MASK)
        try:
            # The leak check does not work in a traced program.
            program = self.start(tool=trace.tool, folder=trap, environment={"ASAN_OPTIONS": "detect_leaks=0"})
        finally:
            os.umask(mask)
        tour.take(self, program)

        with self.subTest("only the agent's port on this machine is contacted"):
            connections = [call for call in trace.calls(r"\w+") if "sa_family=AF_INET" in call]
            self.assertTrue(connections)
            self.assertEqual([call for call in connections if not AGENT.match(call)], [])
        with self.subTest("the program accepts no connections"):
            self.assertEqual(trace.calls("listen", "accept", "accept4"), [])
        with self.subTest("no other program is started, least of all a shell"):
            self.assertEqual(len(trace.calls("execve", "execveat")), 1)
        with self.subTest("nothing is looked for in the working directory"):
            calls = [re.sub(r"AT_FDCWD<[^>]*>", "AT_FDCWD", call) for call in trace.calls(r"(?!getcwd)\w+")]
            self.assertTrue(any("libQt6Core.so.6" in call for call in calls))
            # The directory dialog checks that the folder itself exists, but neither lists nor enters it.
            existence_checks = re.compile(rf'(access|statx)\((AT_FDCWD, )?"/*{re.escape(str(trap))}",')
            self.assertEqual([call for call in calls if str(trap) in call and not existence_checks.match(call)], [])
            self.assertEqual([call for call in calls if RELATIVE.match(call)], [])
        with self.subTest("only the documented files are left behind"):
            self.assertEqual(tour.files_left(self.home) - before, tour.FILES)
        with self.subTest("only the documented files are written"):
            self.assertEqual(self.written(trace), tour.FILES | tour.REMOVED)
        with self.subTest("modes follow the user's mask"):
            for file in tour.FILES:
                mode = stat.S_IMODE((self.home / file).stat().st_mode)
                self.assertEqual((file, oct(mode)), (file, oct(0o666 & ~MASK)))

    def set_trap(self):
        """Creates a working directory for the program, with files that it would load if it searched that folder."""
        trap = self.home.parent / f"{self.home.name}-trap"
        for name in ("platforms/libqxcb.so", "styles/libtrap.so", "imageformats/libqsvg.so", "libQt6Core.so.6",
                     "qt.conf", "Fonts/JetBrainsMono-Regular.ttf"):
            (trap / name).parent.mkdir(parents=True, exist_ok=True)
            (trap / name).write_text("not what it seems to be")
        return trap

    def written(self, trace):
        """The files below the home that were opened for writing or renamed."""
        home = f'"{self.home}/'
        opened = [call for call in trace.calls(*OPENING) if re.search(r"O_WRONLY|O_RDWR|O_CREAT|creat\(", call)]
        changes = [call for call in opened + trace.calls(*MOVING) if home in call]
        return {call.rsplit(home)[-1].split('"')[0] for call in changes}


class TextsFromFiles(DesktopCase):
    NAMES = ("<b>bold</b>", "100%s%n", "a &amp; b", "&File", ":/symbols/gear.svg", "$(reboot)`reboot`")

    def test_are_shown_as_they_are(self):
        blocks = (f"[[projects]]\nname = '{name}'\npath = '/srv/{name}'\n" for name in self.NAMES)
        self.write("planning/projects.toml", "\n".join(blocks))
        self.write(".vantle/planning.json", f'{{"root":"{self.home}/planning"}}')
        program = self.start()
        program.show("Planning")
        for name in self.NAMES:
            with self.subTest(name=name):
                program.find("panel", name)
        self.finish(program)
