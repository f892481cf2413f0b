"""The scripts in tools/check with stand-ins for the tools that they run, and the choice of the compiler for the
developer presets. checks_test.py SOURCE"""

import contextlib
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(sys.argv[1])
CMAKE = shutil.which("cmake")
COMMANDS = ("bash", "dirname", "env", "git", "grep", "tr", "xargs")


@contextlib.contextmanager
def tools(versions, commands=()):
    """A folder for PATH with links to commands, and with tools that print the given versions."""
    with tempfile.TemporaryDirectory(prefix="vantle-checks-") as folder:
        for command in commands:
            pathlib.Path(folder, command).symlink_to(shutil.which(command))
        for name, version in versions.items():
            tool = pathlib.Path(folder, name)
            tool.write_text(f"#!/bin/sh\necho '{version}'\n")
            tool.chmod(0o755)
        yield folder


def run(*command, path):
    return subprocess.run([str(word) for word in command], env={**os.environ, "PATH": path, "CMAKE_PREFIX_PATH": ""},
                          text=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)


class PinnedTools(unittest.TestCase):
    def test_a_check_is_left_out_if_only_another_version_is_installed(self):
        for check, tool in (("format", "clang-format"), ("lint", "clang-tidy")):
            for installed in ({}, {tool: f"Debian {tool} version 19.1.7"}, {f"{tool}-16": "no version"}):
                with self.subTest(check=check, installed=installed), tools(installed, COMMANDS) as path:
                    done = run(SOURCE / "tools/check" / check, path=path)
                    self.assertEqual((done.returncode, done.stdout), (77, f"left out: {tool} 16 is not here\n"))

    def test_the_version_counts_and_not_the_name(self):
        for name in ("clang-format", "clang-format-16"):
            with self.subTest(name=name), tools({name: "Homebrew clang-format version 16.0.6"}, COMMANDS) as path:
                self.assertEqual(run(SOURCE / "tools/check/format", path=path).returncode, 0)

    def test_a_step_that_is_left_out_is_no_failure_and_says_so(self):
        with tempfile.TemporaryDirectory(prefix="vantle-checks-") as folder:
            done = subprocess.run(
                ["bash", "-euc", f". {SOURCE}/tools/check/steps.sh; step Lint sh -c 'echo left out: no tool; exit 77'\n"
                                 "echo then"],
                cwd=folder, text=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.assertEqual((done.returncode, done.stdout), (0, "– Lint left out: no tool\nthen\n"))


class FailedTests(unittest.TestCase):
    """tools/check/tests with a ctest in which the given tests fail, and which prints its arguments."""

    def after(self, *failed, second_status=0):
        lines = "".join(f"\\t {number} - {name} (Failed)\\n" for number, name in enumerate(failed, 1))
        with tools({}, ("bash", "dirname", "mktemp", "tee", "sed", "grep", "wc", "rm")) as path:
            ctest = pathlib.Path(path, "ctest")
            ctest.write_text(f"#!/bin/sh\necho called: $*\ncase $* in *--rerun-failed) exit {second_status} ;; esac\n"
                             f"printf '{lines}'\nexit {8 if failed else 0}\n")
            ctest.chmod(0o755)
            done = run(SOURCE / "tools/check/tests", "asan", "--parallel", "2", path=path)
        return done.returncode, done.stdout.splitlines()[1 + len(failed):]

    def test_of_the_desktop_are_run_once_more_and_named(self):
        attempt = ["Once more, alone: desktop_a, desktop_b", "called: --preset asan --rerun-failed"]
        passed = ["Passed only at the second attempt: desktop_a, desktop_b"]
        self.assertEqual(self.after("desktop_a", "desktop_b"), (0, attempt + passed))
        self.assertEqual(self.after("desktop_a", "desktop_b", second_status=8), (8, attempt))

    def test_of_other_kinds_and_many_at_once_are_not_run_again(self):
        self.assertEqual(self.after(), (0, []))
        for failed in (["model_test"], ["desktop_a", "model_test"], [f"desktop_{name}" for name in "abcd"]):
            with self.subTest(failed=failed):
                self.assertEqual(self.after(*failed), (8, []))


class ChangedSources(unittest.TestCase):
    def test_are_four_of_the_newest_commits_if_nothing_has_changed(self):
        with tools({}, ("awk", "bash", "cat", "mkdir", "sed", "seq", "sort")) as path:
            git = pathlib.Path(path, "git")
            git.write_text("#!/bin/sh\n[ $1 != log ] || seq -f f%.0f.cpp 100000\n")
            git.chmod(0o755)
            done = subprocess.run(
                ["bash", "-euo", "pipefail", "-c", f". {SOURCE}/tools/check/sources.sh; mkdir -p build/log; changedSources"],
                cwd=path, env={**os.environ, "PATH": path}, text=True, stdout=subprocess.PIPE)
        self.assertEqual((done.returncode, done.stdout.split()), (0, [f"f{number}.cpp" for number in range(1, 5)]))


class Lint(unittest.TestCase):
    """tools/check/lint in a tree with two changed sources, and a clang-tidy that records for which it was called."""

    def linted(self, *arguments):
        with tools({}, ("awk", "bash", "cat", "cc", "date", "dirname", "env", "find", "grep", "mkdir", "python3", "sed",
                        "sha256sum", "sort", "touch", "tr", "wc", "xargs")) as path, \
                tempfile.TemporaryDirectory(prefix="vantle-checks-") as tree:
            self.script(path, "git", "case $1 in diff) printf 'a.cpp\\nb.cpp\\n' ;; merge-base) echo base ;; esac")
            self.script(path, "clang-tidy", 'case $1 in --version) echo "version 16.0.6" ;; *) shift $(($# - 1)); '
                                            f'echo $1 >>{tree}/called ;; esac')
            shutil.copytree(SOURCE / "tools/check", pathlib.Path(tree, "tools/check"))
            build = pathlib.Path(tree, "build/asan")
            build.mkdir(parents=True)
            entries = []
            for name in ("a.cpp", "b.cpp"):
                pathlib.Path(tree, name).touch()
                entries.append({"directory": tree, "command": f"cc -o {name}.o -c {tree}/{name}",
                                "file": f"{tree}/{name}"})
            (build / "compile_commands.json").write_text(json.dumps(entries, indent=1))
            done = run(pathlib.Path(tree, "tools/check/lint"), *arguments, path=path)
            called = pathlib.Path(tree, "called")
            return done.returncode, done.stdout.splitlines(), called.read_text().split() if called.exists() else []

    def script(self, path, name, text):
        file = pathlib.Path(path, name)
        file.write_text(f"#!/bin/sh\n{text}\n")
        file.chmod(0o755)

    def test_checks_every_changed_source(self):
        for arguments in ((), ("--within", "600")):
            with self.subTest(arguments=arguments):
                status, said, called = self.linted(*arguments)
                self.assertEqual((status, said[-1], sorted(called)), (0, "2 files checked", ["a.cpp", "b.cpp"]))

    def test_leaves_sources_for_which_there_is_no_time_to_the_next_run_and_says_so(self):
        status, said, called = self.linted("--within", "0")
        self.assertEqual((status, called), (0, []))
        self.assertEqual(said, ["2 of 2 files are left for the next run: tools/check/lint checks them",
                                "0 files checked"])


class Compiler(unittest.TestCase):
    def chosen(self, **versions):
        commands = {name.replace("_", "-").replace("clang", "clang++"): text for name, text in versions.items()}
        with tools(commands) as path:
            probe = pathlib.Path(path, "probe.cmake")
            probe.write_text(f'include("{SOURCE}/cmake/Clang.cmake")\n'
                             'get_filename_component(name "${CMAKE_CXX_COMPILER}" NAME)\nmessage("chosen: ${name}")\n')
            return run(CMAKE, "-P", probe, path=path).stdout

    def test_is_the_newest_clang(self):
        self.assertIn("chosen: clang++-19\n", self.chosen(
            clang="Debian clang version 14.0.6", clang_16="Debian clang version 16.0.6",
            clang_19="Debian clang version 19.1.7 (3)"))
        self.assertIn("chosen: clang++\n", self.chosen(
            clang="clang version 21.1.0 (Fedora 21.1.0-1)", clang_16="clang version 16.0.6"))

    def test_is_neither_too_old_nor_apples_clang(self):
        for versions in ({}, {"clang": "Debian clang version 14.0.6"}, {"clang": "Apple clang version 17.0.0"}):
            with self.subTest(versions=versions):
                self.assertRegex(self.chosen(**versions), r"No clang from 16 on is here")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
