"""The lists in tools/packages, and the installer. The system's package tools are stand-ins whose state is in files: the
packages that are `installed`, those that the servers have `offered`, those of them that are `known` to the system, and
`network` if there is one. install_test.py SOURCE"""

import contextlib
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(sys.argv[1])
PACKAGES = SOURCE / "tools" / "packages"
LISTS = ("run", "build", "test")
COMMANDS = ("awk", "bash", "cat", "cp", "dirname", "env", "fold", "grep", "head", "mkdir", "sed", "tail", "touch",
            "tr")

# The stand-ins for each system's tools. For a tool that installs: its name, its two verbs and its messages for the two
# failures. For every other tool: a script that prints the answer.
INSTALLERS = {
    "debian": ("apt-get", "install", "update", "E: Unable to locate package $name",
               "E: Failed to fetch http://deb.example/pool  Temporary failure resolving 'deb.example'"),
    "fedora": ("dnf", "install", "makecache", "No match for argument: $name",
               ">>> Curl error (6): Could not resolve hostname [Could not resolve host: mirrors.example]"),
    "arch": ("pacman", "-S", "-Syu", "error: target not found: $name",
             "error: failed retrieving file 'extra.db' from mirror.example : Could not resolve host: mirror.example"),
    "opensuse": ("zypper", "install", "refresh", "'$name' not found in package names. Trying capabilities.",
                 "Download (curl) error for 'http://download.example': Error message: Could not resolve host"),
    "homebrew": ("brew", "install", "update", 'Error: No available formula with the name "$name".',
                 "curl: (6) Could not resolve host: formulae.example"),
}
PRINTERS = {
    "debian": {"dpkg-query": 'sed "s/^/installed /" installed',
               "apt-cache": """shift
                               for name; do
                                   grep -qxF "$name" known && version=1 || version="(none)"
                                   printf '%s:\\n  Candidate: %s\\n' "$name" "$version"
                               done"""},
    "fedora": {"rpm": '[ "$1" = --eval ] && echo /nowhere || cat installed'},
    "arch": {},
    "opensuse": {"rpm": '[ "$1" = --eval ] && echo /nowhere || cat installed'},
    "homebrew": {"xcode-select": "true"},
}

INSTALLER = r"""#!/bin/bash
cd "$STATE" || exit 1
case " $* " in
*" -Qq "* | *" list "*) exec cat installed ;;
*" formulae "*) exec cat known ;;
*" --cellar "*) echo /nowhere && exit ;;
esac
echo "{tool} $*" >>calls
case " $* " in
*" {refresh} "*)
    [ -e network ] || {{ echo "{unreachable}"; exit 1; }}
    cp offered known
    ;;
*" {install} "*)
    for name; do
        case $name in -* | {install}) continue ;; esac
        grep -qxF -- "$name" known || {{ echo "{unknown}" >&2; exit 100; }}
    done
    [ -e network ] || {{ echo "{unreachable}" >&2; exit 100; }}
    for name; do
        case $name in -* | {install}) continue ;; esac
        echo "$name" >>installed
    done
    ;;
esac
"""


def rows(name):
    """The rows of a list, each a list of cells; the first row names the systems."""
    lines = (PACKAGES / f"{name}.txt").read_text().splitlines()
    return [line.split() for line in lines if line.strip() and not line.startswith("#")]


def packages(cell):
    return [name for name in re.split(r"[,|]", cell) if name not in ("", "-")]


def required(system):
    """The packages of all lists for a system that offers every alternative."""
    names = []
    for name in LISTS:
        header, *cells = rows(name)
        for row in cells:
            for part in row[header.index(system)].split(","):
                names += packages(part)[:1]
    return list(dict.fromkeys(names))


class Machine:
    """A folder with the installer and, as the only commands, the stand-ins of one system and the usual tools."""

    def __init__(self, folder, system, user=0):
        self.folder = folder
        self.state = folder / "state"
        self.bin = folder / "bin"
        for part in (self.state, self.bin, folder / "tools"):
            part.mkdir()
        shutil.copytree(PACKAGES, folder / "tools/packages")
        for command in COMMANDS:
            (self.bin / command).symlink_to(shutil.which(command))
        self.command("id", f"echo {user}")
        self.command("uname", "echo Darwin" if system == "homebrew" else "echo Linux")
        for tool, body in PRINTERS.get(system, {}).items():
            self.command(tool, f'cd "$STATE" && {body}')
        if system:
            tool, install, refresh, unknown, unreachable = INSTALLERS[system]
            unknown = unknown.replace('"', r'\"')
            self.write(tool, INSTALLER.format(tool=tool, install=install, refresh=refresh, unknown=unknown,
                                              unreachable=unreachable))
            self.set("offered", required(system))
        self.set("installed", [])
        self.set("known", [])
        self.set("calls", [])
        self.set("network", [])

    def write(self, name, text):
        path = self.bin / name
        path.write_text(text)
        path.chmod(0o755)

    def command(self, name, body):
        self.write(name, f"#!/bin/bash\n{body}\n")

    def set(self, name, lines):
        (self.state / name).write_text("".join(f"{line}\n" for line in lines))

    def get(self, name):
        return (self.state / name).read_text().splitlines()

    def install(self, *lists):
        return subprocess.run([self.folder / "tools/packages/install", *(lists or LISTS)], text=True,
                              env={"PATH": str(self.bin), "STATE": str(self.state)}, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE)


@contextlib.contextmanager
def machine(system, **options):
    with tempfile.TemporaryDirectory(prefix="vantle-install-") as folder:
        yield Machine(pathlib.Path(folder), system, **options)


class Lists(unittest.TestCase):
    def test_every_system_has_an_entry_for_every_need(self):
        for name in LISTS:
            header, *cells = rows(name)
            self.assertEqual(header, list(INSTALLERS))
            self.assertTrue(cells)
            for row in cells:
                with self.subTest(list=name, need=row[0]):
                    self.assertEqual(len(row), len(header))
                    self.assertTrue(packages(row[0]))

    def test_every_system_has_its_commands(self):
        self.assertEqual({file.stem for file in (PACKAGES / "systems").iterdir()}, set(INSTALLERS))

    def test_no_name_has_a_librarys_version_in_it(self):
        for name in LISTS:
            for row in rows(name)[1:]:
                for package in packages(row[0]):
                    with self.subTest(package=package):
                        self.assertNotRegex(package, r"^lib.*\d(t64)?$|^libqt6")

    def test_only_systems_that_list_their_offers_have_alternatives(self):
        for name in LISTS:
            header, *cells = rows(name)
            for system in ("fedora", "arch", "opensuse"):
                self.assertEqual([row for row in cells if "|" in row[header.index(system)]], [])


class EverySystem(unittest.TestCase):
    def test_installs_the_packages_of_the_lists_and_then_nothing(self):
        for system in INSTALLERS:
            with self.subTest(system=system), machine(system) as here:
                done = here.install()
                self.assertEqual((done.returncode, done.stderr), (0, ""))
                self.assertEqual(sorted(here.get("installed")), sorted(required(system)))
                here.set("calls", [])
                self.assertEqual(here.install().stdout, "")
                self.assertEqual(here.get("calls"), [])

    def test_installs_only_what_is_missing(self):
        for system in INSTALLERS:
            with self.subTest(system=system), machine(system) as here:
                here.set("known", here.get("offered"))
                here.set("installed", required(system)[1:])
                self.assertEqual(here.install().returncode, 0)
                (call,) = here.get("calls")
                self.assertEqual(call.split()[-1], required(system)[0])
                self.assertNotIn(f" {required(system)[1]}", call)

    def expect_failure(self, here, sentence):
        done = here.install()
        self.assertEqual(done.returncode, 1, done.stdout + done.stderr)
        self.assertRegex(done.stderr.splitlines()[0], sentence)
        self.assertFalse(list(here.folder.glob("build/.packages-*")))
        return done

    def test_a_missing_network_is_reported(self):
        for system in INSTALLERS:
            with self.subTest(system=system), machine(system) as here:
                (here.state / "network").unlink()
                self.expect_failure(here, r"^The package servers cannot be reached: .*\.$")

    def test_apt_gives_up_at_the_first_failure_and_a_silent_server_soon(self):
        with machine("debian") as here:
            (here.state / "network").unlink()
            here.install()
            self.assertEqual(len(here.get("calls")), 2)
            for call in here.get("calls"):
                for option in ("Retries=0", "http::Timeout=10", "https::Timeout=10"):
                    self.assertIn(f"-oAcquire::{option} ", call)

    def test_a_package_that_the_servers_do_not_have_is_named(self):
        for system in INSTALLERS:
            with self.subTest(system=system), machine(system) as here:
                missing = required(system)[2]
                here.set("offered", [name for name in here.get("offered") if name != missing])
                self.expect_failure(here, rf"^The package sources of this system have no '{re.escape(missing)}': .*\.$")

    def test_other_messages_of_the_tool_are_shown(self):
        for system in INSTALLERS:
            with self.subTest(system=system), machine(system) as here:
                here.command(INSTALLERS[system][0], 'case "$1" in -Qq | list | formulae | --cellar) exit 0 ;; esac\n'
                                                    "echo The disk is full; exit 7")
                done = self.expect_failure(here, "^The disk is full$")
                self.assertIn("The packages could not be installed", done.stderr)

    def test_without_root_and_sudo_it_prints_what_to_do_and_tries_nothing(self):
        for system in set(INSTALLERS) - {"homebrew"}:
            with self.subTest(system=system), machine(system, user=1000) as here:
                here.set("known", here.get("offered"))
                done = self.expect_failure(here, "^Installing packages needs root: run this as root, install sudo")
                for name in required(system):
                    self.assertIn(f" {name}", done.stderr)
                self.assertEqual(here.get("calls"), [])

    def test_a_user_installs_through_sudo(self):
        for system in set(INSTALLERS) - {"homebrew"}:
            with self.subTest(system=system), machine(system, user=1000) as here:
                here.command("sudo", '[ "$1" = -- ] && shift; echo sudo >>"$STATE/sudo"; exec "$@"')
                self.assertEqual(here.install().returncode, 0)
                self.assertEqual(sorted(here.get("installed")), sorted(required(system)))
                self.assertIn("sudo", here.get("sudo"))

    def test_a_sudo_that_refuses_is_quoted(self):
        for system in set(INSTALLERS) - {"homebrew"}:
            with self.subTest(system=system), machine(system, user=1000) as here:
                here.command("sudo", "echo 'sudo: a password is required' >&2; exit 1")
                self.expect_failure(here,
                                    r"^Installing packages needs root, and sudo refused: a password is required\.$")


class Alternatives(unittest.TestCase):
    def test_the_first_one_that_the_release_offers_is_installed(self):
        with machine("debian") as here:
            offered = [name.removesuffix("-16") for name in here.get("offered") if "-rt-" not in name]
            here.set("offered", offered + ["libclang-rt-dev"])
            self.assertEqual(here.install().returncode, 0)
            self.assertLessEqual({"clang", "lld", "llvm", "libclang-rt-dev"}, set(here.get("installed")))

    def test_a_later_one_that_is_installed_does_not_suffice(self):
        with machine("debian") as here:
            here.set("known", here.get("offered") + ["clang"])
            here.set("installed", ["clang"])
            self.assertEqual(here.install().returncode, 0)
            self.assertIn("clang-16", here.get("installed"))

    def test_an_optional_package_is_left_out_if_it_is_not_offered(self):
        with machine("debian") as here:
            optional = ("clang-format-16", "clang-tidy-16")
            here.set("offered", [name for name in here.get("offered") if name not in optional])
            self.assertEqual(here.install().returncode, 0)
            self.assertNotIn("clang-format-16", here.get("installed"))
            self.assertIn("clang-16", here.get("installed"))

    def test_homebrew_installs_the_whole_toolkit_only_where_it_has_no_parts_of_it(self):
        with machine("homebrew") as here:
            here.set("known", here.get("offered") + ["qt"])
            here.set("offered", here.get("known"))
            self.assertEqual(here.install().returncode, 0)
            self.assertNotIn("qt", here.get("installed"))
            self.assertLessEqual({"qtbase", "qtsvg"}, set(here.get("installed")))
        with machine("homebrew") as here:
            offered = [name for name in here.get("offered") if not name.startswith("qt")]
            here.set("offered", offered + ["qt"])
            self.assertEqual(here.install().returncode, 0)
            self.assertIn("qt", here.get("installed"))


class UnknownSystem(unittest.TestCase):
    def test_prints_the_packages_that_it_takes_to_be_installed(self):
        with machine(None) as here:
            done = here.install("run")
            self.assertEqual(done.returncode, 0)
            self.assertIn("qt6-wayland", done.stderr)

    def test_a_mac_without_homebrew_is_told_where_it_is(self):
        with machine(None) as here:
            here.command("uname", "echo Darwin")
            done = here.install("run")
            self.assertEqual(done.returncode, 1)
            self.assertIn("https://brew.sh", done.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
