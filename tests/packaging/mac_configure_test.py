"""The project configured for macOS on a machine that is none: nothing that only a Mac has is run, and what
would be compiled there answers, file by file, to what is compiled here."""

import collections
import json
import plistlib
import re
import unittest

from trees import BUILD, SOURCE, run, temporary_folder

PLATFORM = SOURCE / "VantleSettings/Platform"


def compiled_sources(build):
    """The sources below VantleSettings/ that a build tree compiles, as paths relative to the project."""
    commands = json.loads((build / "compile_commands.json").read_text())
    files = {entry["file"] for entry in commands if entry["file"].startswith(f"{SOURCE}/VantleSettings/")}
    return {file.removeprefix(f"{SOURCE}/") for file in files}


def included_headers():
    """For each header below VantleSettings/ the files there that include it, all relative to the project."""
    users = collections.defaultdict(set)
    for file in (SOURCE / "VantleSettings").rglob("*"):
        if file.suffix in (".h", ".cpp", ".mm"):
            for header in re.findall(r'^#include "(.+)"', file.read_text(), re.MULTILINE):
                users[f"VantleSettings/{header}"].add(str(file.relative_to(SOURCE)))
    return users


class MacConfigure(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.build = cls.enterClassContext(temporary_folder())
        cls.said = run("cmake", "-S", SOURCE, "-B", cls.build, "-G", "Ninja", "-DVANTLE_TESTS=OFF",
                       "-DVANTLE_PRECOMPILED_HEADERS=ON", "-DCMAKE_BUILD_TYPE=Release",
                       f"-DCMAKE_TOOLCHAIN_FILE={SOURCE}/tests/packaging/darwin/toolchain.cmake")
        cls.on_mac = compiled_sources(cls.build)
        cls.here = compiled_sources(BUILD)

    def test_configures_without_a_complaint(self):
        self.assertNotRegex(self.said, r"CMake (Warning|Error)")

    def is_only_for_linux(self, file):
        """Whether a source is compiled on Linux alone, or a header's source is."""
        source = file.removesuffix(".h") + ".cpp" if file.endswith(".h") else file
        return source in self.here - self.on_mac and file.removesuffix(".h") + ".mm" not in self.on_mac

    def test_every_header_that_both_systems_use_has_a_source_on_both(self):
        includes = included_headers()
        checked = 0
        for header in sorted(PLATFORM.rglob("*.h")):
            ours = str(header.relative_to(SOURCE).with_suffix(""))
            linux = bool({f"{ours}.cpp", f"{ours}Linux.cpp"} & (self.here - self.on_mac))
            mac = f"{ours}.mm" in self.on_mac
            with self.subTest(header=header.name):
                if linux and not mac:  # then it is a piece of something that only Linux has
                    users = includes[f"{ours}.h"] - {f"{ours}.cpp"}
                    self.assertTrue(users)
                    self.assertEqual([user for user in users if not self.is_only_for_linux(user)], [])
                else:
                    self.assertEqual(linux, mac)
                    checked += mac
        self.assertGreater(checked, 5)

    def test_no_source_is_forgotten_on_either_system(self):
        sources = {str(path.relative_to(SOURCE)) for suffix in ("cpp", "mm")
                   for path in (SOURCE / "VantleSettings").rglob(f"*.{suffix}")}
        self.assertEqual(sources - self.here - self.on_mac, set())

    def test_mac_sources_are_compiled_with_reference_counting_and_only_there(self):
        self.assertFalse([file for file in self.here if file.endswith(".mm")])
        self.assertFalse([file for file in self.on_mac if file.endswith("Linux.cpp")])
        commands = json.loads((self.build / "compile_commands.json").read_text())
        for entry in commands:
            if entry["file"].startswith(f"{SOURCE}/VantleSettings/") and entry["file"].endswith(".mm"):
                with self.subTest(file=entry["file"]):
                    self.assertIn("-fobjc-arc", entry["command"].split())

    def test_the_bundle_says_who_it_is(self):
        plist = self.build / "bin/Vantle Settings.app/Contents/Info.plist"
        said = plistlib.loads(plist.read_bytes())
        version = (BUILD / "packaging/version").read_text().strip()
        expected = {
            "CFBundleIdentifier": "com.vantle.settings",
            "CFBundleName": "Vantle Settings",
            "CFBundleDisplayName": "Vantle Settings",
            "CFBundleExecutable": "Vantle Settings",
            "CFBundlePackageType": "APPL",
            "CFBundleShortVersionString": version,
            "CFBundleVersion": version,
            "LSMinimumSystemVersion": "12.0",
            "LSApplicationCategoryType": "public.app-category.utilities",
            "NSHighResolutionCapable": True,
            "NSPrincipalClass": "NSApplication",
        }
        self.assertEqual({key: said.get(key) for key in expected}, expected)

    def test_the_bundle_carries_the_fonts(self):
        rules = (self.build / "build.ninja").read_text().replace("$ ", " ")
        for face in ("Regular", "Medium", "SemiBold", "Bold"):
            self.assertIn(f"Vantle Settings.app/Contents/Resources/Fonts/JetBrainsMono-{face}.ttf", rules)



if __name__ == "__main__":
    unittest.main()
