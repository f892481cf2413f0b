"""Child processes that are killed when the test process ends, for whatever reason."""

import ctypes
import signal
import subprocess

_PR_SET_PDEATHSIG = 1
_libc = ctypes.CDLL(None)


def _die_with_parent():
    _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGKILL)
    for number in (signal.SIGINT, signal.SIGHUP):
        signal.signal(number, signal.SIG_DFL)  # ignored in a test run that a shell started in the background


def start(arguments, **options):
    return subprocess.Popen(arguments, preexec_fn=_die_with_parent, **options)


def end(process, seconds=5):
    """Terminates a process, and kills it if it has not ended after these seconds."""
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(seconds)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
