"""The source and build trees of the packaging tests, and functions to run commands on them."""

import contextlib
import os
import pathlib
import subprocess
import tempfile

SOURCE = pathlib.Path(os.environ["VANTLE_SOURCE"])
BUILD = pathlib.Path(os.environ["VANTLE_BUILD"])


def run(*command, **options):
    """Runs a command and returns its output on both streams. Raises an error with that output if the command fails."""
    done = subprocess.run([str(word) for word in command], text=True, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **options)
    if done.returncode != 0:
        raise AssertionError(f"{' '.join(done.args)}\nended with {done.returncode}:\n{done.stdout}")
    return done.stdout


@contextlib.contextmanager
def temporary_folder():
    with tempfile.TemporaryDirectory(prefix="vantle-packaging-") as folder:
        yield pathlib.Path(folder)


def files_below(folder):
    """Every file below a folder, as paths relative to it."""
    return {str(path.relative_to(folder)) for path in folder.rglob("*") if not path.is_dir()}
