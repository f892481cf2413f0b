#!/usr/bin/python3
"""Runs one file of desktop tests, here or at an absolute path: run.py [--as-user] PROGRAM FILE [CASE…]

The file runs on a desktop of its own and, where the system allows it, in a network of its own, so that the agent's
port is free and nobody outside is ever asked. Where it does not, nothing else may listen on that port. With
--as-user all of it runs as an ordinary user, also where root runs the tests.
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
