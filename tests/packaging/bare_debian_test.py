"""The Debian package on a minimal system: it installs with its dependencies, the program shows its window, and purging
the package leaves nothing behind. Needs root, debootstrap and a package source."""

import os
import pathlib
import shutil
import signal
import subprocess
import unittest

from Xlib import X, display

from trees import BUILD, SOURCE, run, temporary_folder

UNSHARED = SOURCE / "tests" / "support" / "unshared"
IGNORED = ("proc", "sys", "dev", "tmp", "var/cache", "var/lib/apt", "var/log")


def package_sources():
    """The package sources of this system, as lines of a sources.list."""
    targets = run("apt-get", "indextargets", "--format", "deb $(SITE) $(RELEASE) $(COMPONENT)",
                  "Created-By: Packages")
    return list(dict.fromkeys(targets.splitlines()))


def traces(root):
    """Every path in the system with the program's name in it."""
    found = set()
    for folder, folders, files in os.walk(root):
        relative = pathlib.Path(folder).relative_to(root)
        folders[:] = [name for name in folders if str(relative / name) not in IGNORED]
        found |= {str(relative / name) for name in folders + files if "vantle" in name.lower()}
    return found


class Chroot:
    def __init__(self, root):
        self.root = root

    def command(self, *words):
        # A mount namespace of its own: nothing stays mounted, whatever happens.
        return [UNSHARED, "--mount", "--", "sh", "-c",
                'mount -t proc proc "$0/proc" && exec chroot "$0" "$@"', str(self.root), *map(str, words)]

    def run(self, *words):
        return run(*self.command(*words), env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL": "C.UTF-8",
                                               "DEBIAN_FRONTEND": "noninteractive"})


class Screen:
    """An X server without a screen, on which a window can be waited for."""

    def __enter__(self):
        reader, writer = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x900x24",
                                        "-nolisten", "tcp"], pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as number:
            self.name = f":{number.readline().strip()}"
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()

    def wait_for_window(self, title):
        connection = display.Display(self.name)
        root = connection.screen().root
        root.change_attributes(event_mask=X.SubstructureNotifyMask)
        while True:
            if any(window.get_wm_name() == title for window in root.query_tree().children
                   if window.get_attributes().map_state == X.IsViewable):
                return
            connection.next_event()


class BareDebian(unittest.TestCase):
    def test_installs_starts_and_leaves_nothing_behind_when_purged(self):
        with temporary_folder() as folder, Screen() as screen:
            run("cpack", "--config", BUILD / "CPackConfig.cmake", "-G", "DEB", "-B", folder)
            (package,) = folder.glob("*.deb")
            root = folder / "root"
            sources = package_sources()
            _, site, release, _ = sources[0].split()
            run("debootstrap", "--variant=minbase", release, root, site)
            (root / "etc/apt/sources.list").write_text("\n".join(sources) + "\n")
            chroot = Chroot(root)
            chroot.run("apt-get", "update", "-q")
            self.assertEqual(traces(root), set())

            shutil.copy(package, root / "tmp/package.deb")
            chroot.run("apt-get", "install", "-y", "-q", "--no-install-recommends", "/tmp/package.deb")
            self.assertIn("usr/bin/vantle-settings", traces(root))

            # Folders that a login session provides.
            (root / "tmp/home").mkdir()
            (root / "tmp/runtime").mkdir(mode=0o700)
            entry = (root / "usr/share/applications/com.vantle.settings.desktop").read_text()
            (started_as,) = [line.removeprefix("Exec=") for line in entry.splitlines() if line.startswith("Exec=")]
            program = subprocess.Popen(
                chroot.command("env", "-i", "HOME=/tmp/home", "XDG_RUNTIME_DIR=/tmp/runtime",
                               f"DISPLAY={screen.name}", "PATH=/usr/bin:/bin", started_as),
                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            try:
                screen.wait_for_window("Vantle Settings")
                program.send_signal(signal.SIGTERM)
                said, _ = program.communicate(timeout=30)
            finally:
                program.kill()
            self.assertEqual((program.returncode, said), (0, b""))

            chroot.run("apt-get", "purge", "-y", "-q", "vantle-settings")
            self.assertEqual(traces(root), set())


if __name__ == "__main__":
    unittest.main()
