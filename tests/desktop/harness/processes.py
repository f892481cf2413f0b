"""Processes that end when the test ends, however it ends."""

import ctypes
import signal
import subprocess

_PR_SET_PDEATHSIG = 1
_libc = ctypes.CDLL(None)


def _die_with_parent():
    _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGKILL)
    for number in (signal.SIGINT, signal.SIGHUP):
        signal.signal(number, signal.SIG_DFL)  # a test run in the background ignores them


def start(arguments, **options):
    return subprocess.Popen(arguments, preexec_fn=_die_with_parent, **options)


def end(process, seconds=5):
    """Asks a process to end, and makes it."""
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(seconds)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
