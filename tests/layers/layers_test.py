"""Compares docs/architecture.md with the sources: layers_test.py ROOT"""

import collections
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(sys.argv.pop())
PROGRAM = ROOT / "VantleSettings"
SUFFIXES = (".h", ".cpp", ".mm")
# The layers without widgets, and the folders of Platform that need none.
HEADLESS_LAYERS = {0, 2}
HEADLESS_PLATFORM = {"Platform/Files", "Platform/Agent", "Platform/Keyboard"}


def picture():
    """The layer of each name in the picture: folders end in a slash, and Main is the only file."""
    drawing = (ROOT / "docs/architecture.md").read_text().split("```")[1]
    layers, number = {}, None
    for line in drawing.splitlines():
        if start := re.match(r" (\d)  ", line):
            number = int(start.group(1))
        for name in re.findall(r"(?<!\S)(?:[A-Z]\w+/)+(?=\s|$)|(?<!\S)Main(?=\s)", line):
            layers[name] = number
    return layers


def layer(source, layers):
    """The layer of a source, or None, in the picture's `layers`."""
    names = [name for name in layers if source.startswith(name) or source == f"{name}.cpp"]
    return layers[max(names, key=len)] if names else None


def sources():
    return sorted(file.relative_to(PROGRAM).as_posix() for file in PROGRAM.rglob("*") if file.suffix in SUFFIXES)


def folder(source):
    """The folder of a source; sources in its detail/ belong to it."""
    return source.rpartition("/")[0].removesuffix("/detail")


def includes(source):
    text = (PROGRAM / source).read_text()
    return re.findall(r'^\s*#\s*(?:include|import)\s+"([^"]+\.h)"', text, re.MULTILINE)


class Layers(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.picture = picture()
        cls.sources = sources()

    def layer(self, source):
        return layer(source, self.picture)

    def test_the_picture_has_seven_layers(self):
        self.assertGreater(len(self.sources), 40)
        self.assertEqual(set(self.picture.values()), set(range(7)))

    def test_every_source_has_a_layer(self):
        self.assertEqual([source for source in self.sources if self.layer(source) is None], [])

    def test_everything_in_the_picture_exists(self):
        self.assertEqual([name for name in self.picture
                          if not (PROGRAM / name).is_dir() and f"{name}.cpp" not in self.sources], [])

    def test_includes_point_down_only(self):
        upwards = [f"{source} (layer {self.layer(source)}) includes {included} (layer {self.layer(included)})"
                   for source in self.sources for included in includes(source)
                   if included in self.sources and self.layer(included) > self.layer(source)]
        self.assertEqual(upwards, [])

    def test_every_include_is_written_from_the_root(self):
        unknown = [f"{source} includes {included}" for source in self.sources for included in includes(source)
                   if included not in self.sources]
        self.assertEqual(unknown, [])

    def test_no_two_files_include_each_other(self):
        self.assertEqual(cycles({source: includes(source) for source in self.sources}), [])

    def test_no_two_folders_include_each_other(self):
        below = collections.defaultdict(set)
        for source in self.sources:
            below[folder(source)] |= {folder(included) for included in includes(source)} - {folder(source)}
        self.assertEqual(cycles(below), [])

    def test_details_are_included_by_their_own_folder_only(self):
        outside = [f"{source} includes {included}" for source in self.sources for included in includes(source)
                   if "/detail/" in included and folder(source) != folder(included)]
        self.assertEqual(outside, [])

    def test_the_model_and_what_it_uses_need_no_widgets(self):
        headless = [source for source in self.sources if source.startswith("Model/")
                    or self.layer(source) in HEADLESS_LAYERS and not source.startswith("FontRegistration/")
                    or folder(source) in HEADLESS_PLATFORM]
        widgets = [f"{source} includes {included}" for source in headless for included in includes(source)
                   if included not in headless]
        self.assertEqual(widgets, [])
        libraries = [f"{name}/CMakeLists.txt" for name in {folder(source) for source in headless}
                     if "Qt6::Widgets" in (PROGRAM / name / "CMakeLists.txt").read_text()]
        self.assertEqual(libraries, [])


def cycles(below):
    """The cycles of a graph that maps each name to the names it includes."""
    found, done = [], set()

    def follow(name, way):
        if name in way:
            found.append(" → ".join(way[way.index(name):] + [name]))
        elif name not in done:
            for lower in below.get(name, ()):
                follow(lower, way + [name])
            done.add(name)

    for name in list(below):
        follow(name, [])
    return found


class TestFolders(unittest.TestCase):
    """The tests of a folder of the program are in the folder of the same name below tests/."""
    TESTS = ROOT / "tests"

    def files(self):
        return [file.relative_to(self.TESTS).as_posix() for file in sorted(self.TESTS.glob("[A-Z]*/**/*"))]

    def test_each_is_that_of_a_folder_of_the_program(self):
        folders = {folder(file) for file in self.files() if file.endswith(SUFFIXES)}
        self.assertGreater(len(folders), 20)
        self.assertEqual([name for name in sorted(folders) if not (PROGRAM / name).is_dir()], [])

    def test_the_tests_of_a_source_are_in_its_folder(self):
        at = {pathlib.PurePath(source).stem: folder(source) for source in sources()}
        elsewhere = [f"tests/{file}, but {at[subject]}" for file in self.files() if file.endswith("Test.cpp")
                     for subject in [pathlib.PurePath(file).stem.removesuffix("Test")]
                     if subject in at and folder(file) != at[subject]]
        self.assertEqual(elsewhere, [])

    def test_no_test_includes_a_layer_above_its_folder(self):
        layers, known = picture(), sources()
        above = [f"tests/{file} includes {included}" for file in self.files() if file.endswith((".h", ".cpp"))
                 for included in re.findall(r'^#include "([^"]+)"', (self.TESTS / file).read_text(), re.MULTILINE)
                 if included in known and layer(included, layers) > layer(file, layers)]
        self.assertEqual(above, [])


class OperatingSystem(unittest.TestCase):
    MACROS = re.compile(r"^\s*#\s*(?:el)?if.*\b(Q_OS_\w+|__APPLE__|__linux__|__MACH__|_WIN32|__unix__)", re.MULTILINE)

    def test_only_platform_asks_which_system_it_is(self):
        asking = [source for source in sources()
                  if not source.startswith("Platform/") and self.MACROS.search((PROGRAM / source).read_text())]
        self.assertEqual(asking, [])

    def test_system_code_of_macos_stays_in_platform(self):
        self.assertEqual([source for source in sources()
                          if source.endswith(".mm") and not source.startswith("Platform/")], [])


class Size(unittest.TestCase):
    def test_no_source_is_longer_than_310_lines(self):
        long = [source for source in sources() if len((PROGRAM / source).read_text().splitlines()) > 310]
        self.assertEqual(long, [])

    def test_every_folder_is_one_library(self):
        folders = {folder(source) for source in sources()} - {""}
        self.assertEqual({name: (PROGRAM / name / "CMakeLists.txt").read_text().count("vantle_library(")
                          for name in folders}, dict.fromkeys(folders, 1))

    def test_the_meta_object_compiler_runs_where_a_class_needs_it(self):
        folders = {folder(source) for source in sources()} - {""}
        needed = {folder(source) for source in sources() if "Q_OBJECT" in (PROGRAM / source).read_text()}
        self.assertEqual({name for name in folders
                          if re.search(r"vantle_library\(\w+ MOC\n", (PROGRAM / name / "CMakeLists.txt").read_text())},
                         needed)


if __name__ == "__main__":
    unittest.main(verbosity=1)
