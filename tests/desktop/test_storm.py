"""Many changes in a row, slow agents and agents that close the connection early, changes just before the
end, and a lost X server. With VANTLE_LONG_TESTS in large numbers; without, in small ones."""

import os
import pathlib
import resource
import signal
import subprocess

from harness import processes
from harness.agent import Agent
from harness.case import DesktopCase
from harness.waiting import SECONDS, eventually

LONG = "VANTLE_LONG_TESTS" in os.environ
SWITCH = "Marketing Recording Mode"
FILE = ".vantle/green-screen.json"
TARGET = "/settings/reload-green-screen"


def saved(on):
    return f'{{\n  "enabled" : {"true" if on else "false"}\n}}'


class Changes(DesktopCase):
    def flip(self, program, count):
        """Clicks the switch so often, each time as soon as it has changed, whatever the agent is doing."""
        switch = program.find("check box", SWITCH)
        point, switched = program.middle(switch), self.desktop.accessibility.switched
        switched.clear()
        for changes in range(1, count + 1):
            self.desktop.input.click(*point)
            self.expect(lambda: len(switched) == changes, "the switch does not change")
        self.assertEqual({control for control, _ in switched}, {switch})

    def expect_told(self, count, seconds=SECONDS):
        eventually(lambda: len(self.agent.requests) >= count,
                   lambda: f"told {len(self.agent.requests)} times instead of {count}", seconds)
        self.assertEqual(set(self.agent.targets), {TARGET})
        self.assertEqual(len(self.agent.requests), count)

    def test_many_changes_are_all_announced_and_leave_nothing_behind(self):
        half = 5000 if LONG else 100
        program = self.start()
        self.flip(program, half)
        self.expect_told(half, 300)
        before = self.memory(program)
        self.flip(program, half + 1)
        self.expect_told(2 * half + 1, 300)
        self.expect_file(FILE, saved(True))
        if LONG and b"__asan_init" not in pathlib.Path(self.desktop.program).read_bytes():
            self.assertLess(self.memory(program) - before, 2 << 20)  # sanitizers keep what was freed
        self.finish(program)

    @staticmethod
    def memory(program):
        resident = pathlib.Path(f"/proc/{program.process}/statm").read_text().split()[1]
        return int(resident) * resource.getpagesize()

    def test_an_agent_that_takes_its_time_is_told_of_all(self):
        count = 200 if LONG else 40
        self.agent.close()
        self.agent = Agent(delay=0.02)
        program = self.start()
        self.flip(program, count)
        self.expect_told(count, 60)
        self.expect_file(FILE, saved(False))
        self.finish(program)

    def test_an_agent_that_breaks_off_is_told_of_all(self):
        count = 200 if LONG else 20
        self.agent.close()
        self.agent = Agent(answer=Agent.OK[:20], hangs_up=True)
        program = self.start()
        self.flip(program, count)
        self.expect_told(count)
        self.expect_file(FILE, saved(False))
        self.finish(program)

    def test_a_change_in_the_instant_of_closing_always_reaches_it(self):
        for run in range(1, (200 if LONG else 3) + 1):
            program = self.start()
            program.click("check box", SWITCH)
            program.press("ctrl+w")
            self.expect_end(program)
            self.expect_told(run)
            self.expect_file(FILE, saved(run % 2 == 1))


class Screen(DesktopCase):
    def test_a_lost_x_server_ends_it_with_a_message_and_no_core(self):
        reader, writer = os.pipe()
        server = processes.start(["Xvfb", "-displayfd", str(writer), "-nolisten", "tcp"], pass_fds=[writer],
                                 stderr=subprocess.DEVNULL)
        self.addCleanup(processes.end, server)
        os.close(writer)
        with open(reader) as number:
            display = ":" + number.readline().strip()
        resource.setrlimit(resource.RLIMIT_CORE, (0, resource.getrlimit(resource.RLIMIT_CORE)[1]))
        program = processes.start([self.desktop.program], cwd=self.home, stderr=subprocess.PIPE, text=True,
                                  env=dict(os.environ, HOME=str(self.home), DISPLAY=display,
                                           QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                                           ASAN_OPTIONS="detect_leaks=0"))  # it ends in the middle of its work
        self.addCleanup(processes.end, program)
        eventually(lambda: self.desktop.accessibility.program(program.pid), "the program does not start")
        server.send_signal(signal.SIGKILL)
        _, said = program.communicate(timeout=SECONDS)
        self.assertEqual(program.returncode, 1, said)
        # The toolkit notices first, or the library below it.
        self.assertRegex(said, "The X11 connection broke|fatal IO error .* on X server")
