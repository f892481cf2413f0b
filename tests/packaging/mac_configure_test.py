"""The project configured for macOS on a machine that is none: nothing that only a Mac has is run, and what
would be compiled there answers, file by file, to what is compiled here."""

import json
import plistlib
import unittest

from trees import BUILD, SOURCE, run, temporary_folder

PLATFORM = SOURCE / "VantleSettings/Platform"


def compiled_sources(build):
    """The sources below VantleSettings/ that a build tree compiles, as paths relative to the project."""
    commands = json.loads((build / "compile_commands.json").read_text())
    files = {entry["file"] for entry in commands if entry["file"].startswith(f"{SOURCE}/VantleSettings/")}
    return {file.removeprefix(f"{SOURCE}/") for file in files}


class MacConfigure(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.build = cls.enterClassContext(temporary_folder())
        cls.said = run("cmake", "-S", SOURCE, "-B", cls.build, "-G", "Ninja", "-DVANTLE_TESTS=OFF",
                       "-DCMAKE_BUILD_TYPE=Release",
                       f"-DCMAKE_TOOLCHAIN_FILE={SOURCE}/tests/packaging/darwin/toolchain.cmake")
        cls.on_mac = compiled_sources(cls.build)
        cls.here = compiled_sources(BUILD)

    def headers(self):
        return sorted(header.stem for header in PLATFORM.glob("*.h"))

    def test_configures_without_a_complaint(self):
        self.assertNotRegex(self.said, r"CMake (Warning|Error)")

    def test_every_header_with_a_linux_source_has_a_mac_source_and_the_other_way_round(self):
        checked = 0
        for stem in self.headers():
            ours = f"VantleSettings/Platform/{stem}"
            portable = f"{ours}.cpp" in self.here & self.on_mac
            linux = f"{ours}Linux.cpp" in self.here or (f"{ours}.cpp" in self.here and not portable)
            mac = f"{ours}.mm" in self.on_mac
            with self.subTest(header=f"{stem}.h"):
                if stem in ONLY_LINUX:
                    self.assertTrue(linux and not mac)
                    continue
                self.assertEqual(linux, mac)
            checked += linux
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


# Headers whose subject only Linux has.
ONLY_LINUX = {"ConfirmationDialog"}

if __name__ == "__main__":
    unittest.main()
