"""The base class of the desktop test cases, and their test result."""

import itertools
import pathlib
import unittest

from .agent import Agent, reload
from .program import Program
from .waiting import eventually


class DesktopCase(unittest.TestCase):
    """Each case has a home of its own and a listening agent. `desktop` is set by the runner."""

    desktop = None
    maxDiff = None
    _numbers = itertools.count()

    def setUp(self):
        self.another_home()
        self.agent = Agent()
        self.addCleanup(lambda: self.agent and self.agent.close())
        self._programs = []
        self.addCleanup(lambda: [program.kill() for program in self._programs])

    def start(self, **options):
        """The program, its window ready for use."""
        return self.launch(**options).ready()

    def launch(self, **options):
        """The program as it has just been started."""
        program = Program(self.desktop, self.home, **options)
        self._programs.append(program)
        return program

    def another_home(self):
        """From now on the case's files and programs are those of another home."""
        self.home = pathlib.Path(self.desktop.folder) / f"home{next(self._numbers)}"
        self.home.mkdir()

    def write(self, path, text):
        """Puts a file into the home."""
        file = self.home / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)

    def expect_file(self, path, text):
        """Waits until a file of the home holds exactly these bytes."""
        file = self.home / path
        eventually(lambda: file.is_file() and file.read_bytes() == text.encode(),
                   lambda: f"{path} is {file.read_bytes() if file.is_file() else 'missing'}")

    def expect_no_file(self, path):
        self.assertFalse((self.home / path).exists(), path)

    def expect_requests(self, *targets):
        """Waits for as many requests, and compares every one whole."""
        eventually(lambda: len(self.agent.requests) >= len(targets),
                   lambda: f"the agent was told {self.agent.targets} instead of {list(targets)}")
        self.assertEqual(self.agent.requests, [reload(target) for target in targets])

    def expect(self, condition, what="it does not become so"):
        return eventually(condition, what)

    def finish(self, program):
        """Closes the window, with which the program ends."""
        program.window.close()
        self.expect_end(program)

    def expect_end(self, program):
        """Waits until the program has ended well, having said nothing."""
        self.assertEqual((program.ended(), program.said), (0, ""))


class Result(unittest.TextTestResult):
    """Takes a picture of the desktop at the moment of a failure."""

    def addFailure(self, test, error):
        super().addFailure(test, error)
        self._take_picture(test)

    def addError(self, test, error):
        super().addError(test, error)
        self._take_picture(test)

    def _take_picture(self, test):
        self.stream.writeln(f"picture: {DesktopCase.desktop.picture(test.id())}")
