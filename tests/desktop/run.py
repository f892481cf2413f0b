#!/usr/bin/python3
"""Runs one file of desktop tests, of this folder or at an absolute path: run.py [--as-user] PROGRAM FILE [CASE…]

The tests run on their own desktop and, where the system allows it, in their own network, so that the agent's port is
free and no other machine can be contacted. Where it does not, nothing else may listen on that port. With --as-user
everything runs as an ordinary user, even if root has started it.
"""

import pathlib
import sys
import tempfile
import unittest

_AS_USER = "--as-user"


def main():
    folder = pathlib.Path(__file__).resolve().parent
    sys.path.insert(0, str(folder))
    from harness import isolation
    from harness.desktop import Desktop, pictures_of

    program, file, *names = [argument for argument in sys.argv[1:] if argument != _AS_USER]
    isolation.enter(_AS_USER in sys.argv, pictures_of(program))

    with tempfile.TemporaryDirectory(prefix="vantle-desktop-") as temporary:
        desktop = Desktop(program, temporary)
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
