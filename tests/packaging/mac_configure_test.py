"""The project configured for macOS on another system: no tool that only a Mac has is run, and the sources for macOS
correspond, file by file, to those that are compiled here."""

import collections
import json
import pathlib
import plistlib
import re
import unittest

from trees import BUILD, SOURCE, run, temporary_folder

PLATFORM = SOURCE / "VantleSettings/Platform"


def compiled_sources(build):
    """The sources that a build tree compiles, as paths relative to the project."""
    commands = json.loads((build / "compile_commands.json").read_text())
    files = {entry["file"] for entry in commands if not entry["file"].startswith(f"{build}/")}
    return {file.removeprefix(f"{SOURCE}/") for file in files if "_autogen" not in file}


def of_the_program(sources):
    return {source for source in sources if source.startswith("VantleSettings/")}


def folders_searched(build):
    """For each source, the folders of the project in which the compiler looks for headers."""
    searched = collections.defaultdict(set)
    for entry in json.loads((build / "compile_commands.json").read_text()):
        folders = re.findall(rf"-I({re.escape(str(SOURCE))}\S*)", entry["command"])
        searched[entry["file"].removeprefix(f"{SOURCE}/")] |= {pathlib.Path(folder) for folder in folders}
    return searched


def headers_behind(source, folders, known):
    """The project's headers that a source includes, directly or through others."""
    found, left = set(), [SOURCE / source]
    while left:
        file = left.pop()
        if file not in known:
            known[file] = re.findall(r'^#include "(.+)"', file.read_text(), re.MULTILINE)
        for name in known[file]:
            header = next((folder / name for folder in [file.parent, *sorted(folders)]
                           if (folder / name).is_file()), None)
            if header and header not in found:
                found.add(header)
                left.append(header)
    return {str(header.resolve().relative_to(SOURCE)) for header in found}


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
        cls.output = run("cmake", "-S", SOURCE, "-B", cls.build, "-G", "Ninja", "-DVANTLE_TESTS=ON",
                         "-DVANTLE_BENCHMARKS=ON", "-DVANTLE_PRECOMPILED_HEADERS=ON", "-DCMAKE_BUILD_TYPE=Release",
                         f"-DCMAKE_TOOLCHAIN_FILE={SOURCE}/tests/packaging/darwin/toolchain.cmake")
        cls.on_mac = compiled_sources(cls.build)
        cls.here = compiled_sources(BUILD)

    def test_configures_without_a_warning(self):
        self.assertNotRegex(self.output, r"CMake (Warning|Error)")

    def is_only_for_linux(self, file):
        """Whether a source, or the source of a header, is compiled on Linux alone."""
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
                if linux and not mac:  # then only sources for Linux may include it
                    users = includes[f"{ours}.h"] - {f"{ours}.cpp"}
                    self.assertTrue(users)
                    self.assertEqual([user for user in users if not self.is_only_for_linux(user)], [])
                else:
                    self.assertEqual(linux, mac)
                    checked += mac
        self.assertGreater(checked, 5)

    def test_no_source_is_forgotten_on_either_system(self):
        sources = {str(path.relative_to(SOURCE)) for folder in ("VantleSettings", "tools", "tests", "benchmarks", "fuzz")
                   for suffix in ("cpp", "mm") for path in (SOURCE / folder).rglob(f"*.{suffix}")}
        self.assertEqual(sources - self.here - self.on_mac, set())

    def test_nothing_built_on_a_mac_uses_what_only_linux_has(self):
        """This includes tools, tests, benchmarks and fuzzers, which could include such a header but not link its
        source."""
        folders, known, checked = folders_searched(self.build), {}, collections.Counter()
        for source in sorted(self.on_mac):
            checked[source.split("/")[0]] += 1
            with self.subTest(source=source):
                behind = headers_behind(source, folders[source], known)
                self.assertEqual([header for header in sorted(behind) if self.is_only_for_linux(header)], [])
        for folder in ("VantleSettings", "tools", "tests", "benchmarks", "fuzz"):
            self.assertGreater(checked[folder], 5 if folder != "fuzz" else 1)

    def test_mac_sources_are_compiled_with_reference_counting_and_only_there(self):
        self.assertFalse([file for file in self.here if file.endswith(".mm")])
        self.assertFalse([file for file in self.on_mac if file.endswith("Linux.cpp")])
        commands = json.loads((self.build / "compile_commands.json").read_text())
        for entry in commands:
            if entry["file"].startswith(f"{SOURCE}/VantleSettings/") and entry["file"].endswith(".mm"):
                with self.subTest(file=entry["file"]):
                    self.assertIn("-fobjc-arc", entry["command"].split())

    def test_the_cases_left_out_on_a_mac_exist(self):
        left_out = set()
        for tests in (self.build / "tests").rglob("CTestTestfile.cmake"):
            for names in re.findall(r'"--gtest_filter=-([^"]+)"', tests.read_text()):
                left_out |= set(names.split(":"))
        cases = {f"{suite}.{case}" for source in (SOURCE / "tests").rglob("*.cpp")
                 for suite, case in re.findall(r"^TEST(?:_F)?\((\w+), (\w+)\)", source.read_text(), re.MULTILINE)}
        self.assertTrue(left_out)
        self.assertEqual(left_out - cases, set())

    def test_the_bundle_has_its_names_and_versions(self):
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

    def test_the_bundle_says_why_it_reads_the_folders_that_the_system_protects(self):
        said = plistlib.loads((self.build / "bin/Vantle Settings.app/Contents/Info.plist").read_bytes())
        for folder in ("Desktop", "Documents", "Downloads"):
            self.assertIn("planning projects", said[f"NS{folder}FolderUsageDescription"])

    def test_the_bundle_carries_the_fonts(self):
        rules = (self.build / "build.ninja").read_text().replace("$ ", " ")
        for face in ("Regular", "Medium", "SemiBold", "Bold"):
            self.assertIn(f"Vantle Settings.app/Contents/Resources/Fonts/JetBrainsMono-{face}.ttf", rules)

    def test_the_bundle_carries_the_licences(self):
        rules = (self.build / "build.ninja").read_text().replace("$ ", " ")
        for name in ("LICENSE", "THIRD-PARTY.md", "LGPL-3.0.txt", "GPL-3.0.txt", "Apache-2.0.txt"):
            self.assertIn(f"Vantle Settings.app/Contents/Resources/Licenses/{name}", rules)


if __name__ == "__main__":
    unittest.main()
