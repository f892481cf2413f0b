"""Isolates a test run: its own network, mount namespace and user, as far as the system allows them."""

import fcntl
import os
import pathlib
import socket
import struct
import subprocess
import sys

_STAGE = "VANTLE_DESKTOP_TEST_NETWORK"
_SIOCGIFFLAGS, _SIOCSIFFLAGS, _IFF_UP = 0x8913, 0x8914, 1

# Commands that run another as the user nobody: the second works where a user namespace has made an ordinary user root.
_AS_NOBODY = (["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"],
              ["unshare", "--map-user=65534", "--map-group=65534"])


def enter(as_user=False, folder=None):
    """Restarts this script, with the same arguments, in its own namespaces. With `as_user` a script that root has
    started continues as an ordinary user, who may write into `folder`."""
    if _STAGE not in os.environ:
        _enter_own_network()
    if os.environ[_STAGE] == "own":
        _raise_loopback()
        _hide_other_x_servers()
    if as_user and os.environ[_STAGE] != "ready" and os.getuid() == 0:
        _become_ordinary_user(folder)
    _require_free_port()


def has_own_mounts():
    """Whether this run has its own mount namespace, so that no other process sees what it mounts."""
    return os.environ.get(_STAGE) == "own"


def _enter_own_network():
    """Restarts in new namespaces; without the permission for them, continues in the machine's network."""
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


def _hide_other_x_servers():
    """Mounts an empty folder for the sockets of X servers. Two servers in different networks may choose the same
    number, and the later one would replace the socket of the earlier one."""
    os.makedirs("/tmp/.X11-unix", exist_ok=True)
    subprocess.run(["mount", "-t", "tmpfs", "-o", "mode=1777", "tmpfs", "/tmp/.X11-unix"], check=True)


def _become_ordinary_user(folder):
    folder.mkdir(parents=True, exist_ok=True)
    folder.chmod(0o1777)
    os.environ[_STAGE] = "ready"
    for command in _AS_NOBODY:
        if subprocess.run([*command, "true"], stderr=subprocess.DEVNULL).returncode == 0:
            os.execvp(command[0], [*command, sys.executable, *sys.argv])


def _require_free_port():
    with socket.socket() as probe:
        if probe.connect_ex(("127.0.0.1", 18484)) == 0:
            sys.exit("Something listens on the agent's port, 18484: end it, and try again.")
