"""The base class of the desktop test cases, and their test result."""

import itertools
import pathlib
import unittest

from .agent import Agent, reload
from .program import Program
from .waiting import eventually


class DesktopCase(unittest.TestCase):
    """Each test has its own home and a listening agent. `desktop` is set by the runner."""

    desktop = None
    maxDiff = None
    _numbers = itertools.count()

    def setUp(self):
        self.use_new_home()
        self.agent = Agent()
        self.addCleanup(lambda: self.agent and self.agent.close())
        self._programs = []
        self.addCleanup(lambda: [program.kill() for program in self._programs])

    def start(self, **options):
        """Starts the program and waits until its window is ready for use."""
        return self.launch(**options).ready()

    def launch(self, **options):
        """Starts the program without waiting for its window."""
        program = Program(self.desktop, self.home, **options)
        self._programs.append(program)
        return program

    def use_new_home(self):
        """Creates a home, which the test's files and programs use from now on."""
        self.home = pathlib.Path(self.desktop.folder) / f"home{next(self._numbers)}"
        self.home.mkdir()

    def write(self, path, text):
        """Writes a file below the home."""
        file = self.home / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)

    def expect_file(self, path, text):
        """Waits until a file below the home contains exactly this text."""
        file = self.home / path
        eventually(lambda: file.is_file() and file.read_bytes() == text.encode(),
                   lambda: f"{path} is {file.read_bytes() if file.is_file() else 'missing'} instead of {text.encode()}")

    def expect_no_file(self, path):
        self.assertFalse((self.home / path).exists(), f"{path} exists")

    def expect_requests(self, *targets):
        """Waits for as many requests as there are targets, and compares every part of each."""
        eventually(lambda: len(self.agent.requests) >= len(targets),
                   lambda: f"the agent has received {self.agent.targets} instead of {list(targets)}")
        self.assertEqual(self.agent.requests, [reload(target) for target in targets])

    def expect_description(self, control, text):
        """Waits until a control has this accessible description."""
        eventually(lambda: control.description == text,
                   lambda: f"the description of {control} is {control.description!r} instead of {text!r}")

    def expect(self, condition, message):
        """See eventually()."""
        return eventually(condition, message)

    def finish(self, program):
        """Closes the window and waits until the program has ended."""
        program.window.close()
        self.expect_end(program)

    def expect_end(self, program):
        """Waits until the program has ended with status 0 and without any output."""
        self.assertEqual((program.wait(), program.output), (0, ""))


class Result(unittest.TextTestResult):
    """Saves a picture of the desktop when a test fails."""

    def addFailure(self, test, error):
        super().addFailure(test, error)
        self._take_picture(test)

    def addError(self, test, error):
        super().addError(test, error)
        self._take_picture(test)

    def _take_picture(self, test):
        self.stream.writeln(f"picture: {DesktopCase.desktop.picture(test.id())}")
