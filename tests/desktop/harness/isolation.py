"""Keeps a test run to itself: a network, a mount namespace and a user of its own, as far as the system allows them."""

import fcntl
import os
import pathlib
import socket
import struct
import subprocess
import sys

_STAGE = "VANTLE_DESKTOP_TEST_NETWORK"
_SIOCGIFFLAGS, _SIOCSIFFLAGS, _IFF_UP = 0x8913, 0x8914, 1

# How root becomes nobody: the second command works where a user namespace has made an ordinary user root.
_ORDINARY = (["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"],
             ["unshare", "--map-user=65534", "--map-group=65534"])


def enter(as_user=False, folder=None):
    """Starts this script over, with the same arguments, in namespaces of its own. With `as_user` it goes on as an
    ordinary user, who may write into `folder`, also where root has started it."""
    if _STAGE not in os.environ:
        _enter_own_network()
    if os.environ[_STAGE] == "own":
        _raise_loopback()
        _hide_other_screens()
    if as_user and os.environ[_STAGE] != "ready" and os.getuid() == 0:
        _become_ordinary_user(folder)
    _refuse_if_somebody_listens()


def has_own_mounts():
    """Whether what this run mounts is seen by nobody else."""
    return os.environ.get(_STAGE) == "own"


def _enter_own_network():
    """Restarts in new namespaces; without the permission for them, goes on in the common network."""
    unshared = str(pathlib.Path(__file__).resolve().parents[2] / "support" / "unshared")
    separated = [unshared, "--net", "--mount", "--"]
    if subprocess.run([*separated, "true"], stderr=subprocess.DEVNULL).returncode == 0:
        os.environ[_STAGE] = "own"
        os.execv(unshared, [*separated, sys.executable, *sys.argv])
    os.environ[_STAGE] = "common"


def _raise_loopback():
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as probe:
        name = b"lo".ljust(16, b"\0")
        answer = fcntl.ioctl(probe, _SIOCGIFFLAGS, name + bytes(24))
        flags, = struct.unpack("H", answer[16:18])
        fcntl.ioctl(probe, _SIOCSIFFLAGS, name + struct.pack("H", flags | _IFF_UP) + bytes(22))


def _hide_other_screens():
    """X servers in different networks do not see each other's numbers, but would share the folder of their sockets:
    the later one would take the earlier one's place there."""
    os.makedirs("/tmp/.X11-unix", exist_ok=True)
    subprocess.run(["mount", "-t", "tmpfs", "-o", "mode=1777", "tmpfs", "/tmp/.X11-unix"], check=True)


def _become_ordinary_user(folder):
    folder.mkdir(parents=True, exist_ok=True)
    folder.chmod(0o1777)
    os.environ[_STAGE] = "ready"
    for ordinary in _ORDINARY:
        if subprocess.run([*ordinary, "true"], stderr=subprocess.DEVNULL).returncode == 0:
            os.execvp(ordinary[0], [*ordinary, sys.executable, *sys.argv])


def _refuse_if_somebody_listens():
    with socket.socket() as probe:
        if probe.connect_ex(("127.0.0.1", 18484)) == 0:
            sys.exit("Something listens on the agent's port, 18484: end it, and try again.")
