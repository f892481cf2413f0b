"""THIRD-PARTY.md lists every file and every library of others that is shipped or linked."""

import fnmatch
import re
import subprocess
import unittest

from trees import BUILD, SOURCE, run, temporary_folder

# Libraries of the compiler and of the C library, and those that sanitizers and the toolkit's libraries need.
OF_THE_SYSTEM = re.compile(r"(ld-linux.*|lib(c|m|dl|rt|pthread|resolv|gcc_s|stdc\+\+|GLX|OpenGL|GL|EGL))$")


def patterns():
    """Everything in back quotes that is no path."""
    quoted = re.findall(r"`([^`]+)`", (SOURCE / "THIRD-PARTY.md").read_text())
    return [text for text in quoted if "/" not in text]


def is_listed(name):
    return any(fnmatch.fnmatchcase(name, pattern) for pattern in patterns())


class Notices(unittest.TestCase):
    def test_every_font_is_listed_and_its_licence_beside_it(self):
        fonts = SOURCE / "VantleSettings/Resources/Fonts"
        files = {file.name for file in fonts.iterdir()}
        self.assertIn("OFL.txt", files)
        for name in files - {"OFL.txt"}:
            self.assertTrue(is_listed(name), name)

    def test_every_linked_library_is_listed(self):
        dynamic = run("readelf", "--dynamic", BUILD / "bin/vantle-settings")
        libraries = re.findall(r"\(NEEDED\).*\[(.+?)\.so", dynamic)
        self.assertIn("libQt6Widgets", libraries)
        for name in libraries:
            with self.subTest(library=name):
                self.assertTrue(OF_THE_SYSTEM.match(name) or is_listed(name))

    def test_every_package_that_the_build_looks_for_is_listed(self):
        text = "\n".join(file.read_text() for file in [SOURCE / "CMakeLists.txt", *(SOURCE / "cmake").glob("*.cmake")])
        for name in re.findall(r"find_package\((\w+)", text):
            with self.subTest(package=name):
                self.assertTrue(name == "PkgConfig" or is_listed(f"lib{name}") or is_listed(f"lib{name}Core"))

    def test_the_licences_that_ask_for_it_are_shipped_in_full(self):
        for name in ("LGPL-3.0", "GPL-3.0", "Apache-2.0"):
            self.assertGreater(len((SOURCE / f"packaging/licenses/{name}.txt").read_text()), 5000)

    def test_a_bundle_with_a_library_that_is_not_listed_is_refused_by_name(self):
        with temporary_folder() as folder:
            inside = folder / "A.app/Contents/Frameworks"
            inside.mkdir(parents=True)
            for name in ("QtCore.framework", "libpcre2-16.0.dylib", "libsimdjson.26.0.0.dylib", "libicudata.77.dylib"):
                (inside / name).touch()
            check = [SOURCE / "tools/check/notices", folder / "A.app"]
            self.assertEqual(run(*check), "")
            (inside / "libunknown.3.dylib").touch()
            done = subprocess.run(check, text=True, capture_output=True)
            self.assertEqual((done.returncode, done.stderr), (1, "THIRD-PARTY.md does not list libunknown.\n"))


if __name__ == "__main__":
    unittest.main()
