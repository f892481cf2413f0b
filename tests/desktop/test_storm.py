"""Many changes in a row, slow agents and agents that close the connection early, changes just before the end, and a
lost X server. With VANTLE_LONG_TESTS the numbers are large; without, small."""

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
        """Clicks the switch that often, each time as soon as the previous change is reported, without waiting for the
        agent."""
        switch = program.find("check box", SWITCH)
        point, switched = program.middle(switch), self.desktop.accessibility.switched
        switched.clear()
        for changes in range(1, count + 1):
            self.desktop.input.click(*point)
            self.expect(lambda: len(switched) == changes, "the switch does not report a change")
        self.assertEqual({control for control, _ in switched}, {switch})

    def expect_announced(self, count, seconds=SECONDS):
        eventually(lambda: len(self.agent.requests) >= count,
                   lambda: f"{len(self.agent.requests)} requests instead of {count}", seconds)
        self.assertEqual(set(self.agent.targets), {TARGET})
        self.assertEqual(len(self.agent.requests), count)

    def test_many_changes_are_all_announced_and_do_not_grow_the_memory(self):
        half = 5000 if LONG else 100
        program = self.start()
        self.flip(program, half)
        self.expect_announced(half, 300)
        before = self.memory(program)
        self.flip(program, half + 1)
        self.expect_announced(2 * half + 1, 300)
        self.expect_file(FILE, saved(True))
        if LONG and b"__asan_init" not in pathlib.Path(self.desktop.program).read_bytes():
            self.assertLess(self.memory(program) - before, 2 << 20)  # sanitizers keep what was freed
        self.finish(program)

    @staticmethod
    def memory(program):
        resident = pathlib.Path(f"/proc/{program.process}/statm").read_text().split()[1]
        return int(resident) * resource.getpagesize()

    def test_a_slow_agent_is_told_of_all_changes(self):
        count = 200 if LONG else 40
        self.agent.close()
        self.agent = Agent(delay=0.02)
        program = self.start()
        self.flip(program, count)
        self.expect_announced(count, 60)
        self.expect_file(FILE, saved(False))
        self.finish(program)

    def test_an_agent_that_closes_the_connection_early_is_told_of_all_changes(self):
        count = 200 if LONG else 20
        self.agent.close()
        self.agent = Agent(answer=Agent.OK[:20], hangs_up=True)
        program = self.start()
        self.flip(program, count)
        self.expect_announced(count)
        self.expect_file(FILE, saved(False))
        self.finish(program)

    def test_a_change_just_before_closing_always_reaches_the_agent(self):
        for run in range(1, (200 if LONG else 3) + 1):
            program = self.start()
            program.click("check box", SWITCH)
            program.press("ctrl+w")
            self.expect_end(program)
            self.expect_announced(run)
            self.expect_file(FILE, saved(run % 2 == 1))


class Screen(DesktopCase):
    def test_a_lost_x_server_ends_the_program_with_a_message_and_no_core_dump(self):
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
                                           ASAN_OPTIONS="detect_leaks=0"))  # the program frees nothing when it ends so
        self.addCleanup(processes.end, program)
        eventually(lambda: self.desktop.accessibility.program(program.pid), "the program does not start")
        server.send_signal(signal.SIGKILL)
        _, errors = program.communicate(timeout=SECONDS)
        self.assertEqual(program.returncode, 1, errors)
        # Either the toolkit notices first, or the X11 library that it uses.
        self.assertRegex(errors, "The X11 connection broke|fatal IO error .* on X server")
