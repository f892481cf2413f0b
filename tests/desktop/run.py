#!/usr/bin/python3
"""Runs one file of desktop tests, here or at an absolute path: run.py [--as-user] PROGRAM FILE [CASE…]

The file runs on a desktop of its own and, where the system allows it, in a network of its own, so that the agent's
port is free and nobody outside is ever asked. Where it does not, nothing else may listen on that port. With
--as-user all of it runs as an ordinary user, also where root runs the tests.
"""

import fcntl
import os
import pathlib
import socket
import struct
import subprocess
import sys
import tempfile
import unittest

_INSIDE = "VANTLE_DESKTOP_TEST_NETWORK"
_AS_USER = "--as-user"
_SIOCGIFFLAGS, _SIOCSIFFLAGS, _IFF_UP = 0x8913, 0x8914, 1


def enter_own_network():
    """Starts over in a network and a mount namespace; without the right to, goes on in the common ones."""
    unshared = str(pathlib.Path(__file__).resolve().parents[1] / "support" / "unshared")
    separated = [unshared, "--net", "--mount", "--"]
    if subprocess.run([*separated, "true"], stderr=subprocess.DEVNULL).returncode == 0:
        os.environ[_INSIDE] = "own"
        os.execv(unshared, [*separated, sys.executable, *sys.argv])
    os.environ[_INSIDE] = "common"


def raise_loopback():
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as probe:
        name = b"lo".ljust(16, b"\0")
        answer = fcntl.ioctl(probe, _SIOCGIFFLAGS, name + bytes(24))
        flags, = struct.unpack("H", answer[16:18])
        fcntl.ioctl(probe, _SIOCSIFFLAGS, name + struct.pack("H", flags | _IFF_UP) + bytes(22))


def hide_other_screens():
    """X servers in different networks do not see each other's numbers, but would share the folder of their sockets:
    the later one would take the earlier one's place there."""
    os.makedirs("/tmp/.X11-unix", exist_ok=True)
    subprocess.run(["mount", "-t", "tmpfs", "-o", "mode=1777", "tmpfs", "/tmp/.X11-unix"], check=True)


def refuse_if_somebody_listens():
    with socket.socket() as probe:
        if probe.connect_ex(("127.0.0.1", 18484)) == 0:
            sys.exit("Something listens on the agent's port, 18484: end it, and try again.")


def become_ordinary_user():
    """Starts over as nobody, if this is a root that may do so."""
    ordinary = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]
    sys.argv.remove(_AS_USER)
    if os.getuid() == 0 and subprocess.run([*ordinary, "true"], stderr=subprocess.DEVNULL).returncode == 0:
        os.environ[_INSIDE] = "ready"
        pictures = pathlib.Path(sys.argv[1]).resolve().parent / "../desktop-tests"
        pictures.mkdir(exist_ok=True)
        pictures.chmod(0o1777)
        os.execvp("setpriv", [*ordinary, sys.executable, *sys.argv])


def main():
    if _INSIDE not in os.environ:
        enter_own_network()
    if os.environ[_INSIDE] == "own":
        raise_loopback()
        hide_other_screens()
    if _AS_USER in sys.argv:
        become_ordinary_user()
    refuse_if_somebody_listens()

    program, file, *names = sys.argv[1:]
    folder = pathlib.Path(__file__).resolve().parent
    sys.path.insert(0, str(folder))
    from harness.desktop import Desktop

    with tempfile.TemporaryDirectory(prefix="vantle-desktop-") as place:
        desktop = Desktop(program, place)
        try:
            desktop.open()
            from harness.case import DesktopCase, Result
            DesktopCase.desktop = desktop
            loader = unittest.TestLoader()
            loader.testNamePatterns = [f"*{name}*" for name in names] or None
            tests = loader.discover(str((folder / file).parent), pattern=pathlib.Path(file).name)
            if tests.countTestCases() == 0:
                sys.exit("no test was found")
            result = unittest.TextTestRunner(verbosity=2, resultclass=Result).run(tests)
        finally:
            desktop.close()
    sys.exit(0 if result.wasSuccessful() else 1)


if __name__ == "__main__":
    main()
