"""Holds docs/architecture.md against the sources: house_test.py ROOT"""

import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(sys.argv.pop())
HOUSE = ROOT / "VantleSettings"
SUFFIXES = (".h", ".cpp", ".mm")

# Which floors each may include.
MAY_INCLUDE = {
    "5": {"5", "4", "4 components", "3", "2", "1 window", "1"},
    "4": {"4", "4 components", "3", "2", "1 window", "1"},
    "4 components": {"4 components", "1 window", "1"},
    "3": {"3", "2", "1"},
    "2": {"2", "1"},
    "1 window": {"1 window", "1"},
    "1": {"1"},
}


def picture():
    """The floor of each name that the picture gives: folders end in a slash, files have no suffix."""
    text = (ROOT / "docs/architecture.md").read_text()
    drawing = text.split("```")[1]
    floors, floor = {}, None
    for line in drawing.splitlines():
        if start := re.match(r" (\d(?: window| components)?)  ", line):
            floor = start.group(1)
        for name in re.findall(r"(?<!\S)(?:[A-Z]\w+/)*[A-Z]\w+/?(?=\s|$)", line[15:]):
            floors[name] = floor
    return floors


def window_half():
    """The files of Platform that CMake gives to the library that needs a window."""
    text = (HOUSE / "Platform/CMakeLists.txt").read_text()
    calls = re.findall(r"target_sources\(VantlePlatformUi PRIVATE([^)]*)\)", text)
    return {f"Platform/{name}" for call in calls for name in call.split()}


def sources():
    return sorted(file.relative_to(HOUSE).as_posix() for file in HOUSE.rglob("*") if file.suffix in SUFFIXES)


def includes(source):
    text = (HOUSE / source).read_text()
    return re.findall(r'^\s*#\s*(?:include|import)\s+"([^"]+\.h)"', text, re.MULTILINE)


class House(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.picture = picture()
        cls.window_half = window_half()
        cls.sources = sources()

    def floor(self, source):
        if source in self.window_half:
            return "1 window"
        stem = re.sub(r"(Linux)?\.\w+$", "", source)
        names = [name for name in self.picture
                 if stem == name or (name.endswith("/") and source.startswith(name))]
        return self.picture[max(names, key=len)] if names else None

    def test_there_is_a_house(self):
        self.assertGreater(len(self.sources), 40)
        self.assertEqual(set(self.picture.values()), set(MAY_INCLUDE))
        self.assertIn("Platform/Symbol.h", self.window_half)

    def test_every_source_stands_on_a_floor(self):
        self.assertEqual([source for source in self.sources if self.floor(source) is None], [])

    def test_everything_that_the_picture_names_exists(self):
        missing = [name for name in self.picture
                   if not (HOUSE / name).is_dir() and f"{name}.h" not in self.sources
                   and f"{name}.cpp" not in self.sources]
        self.assertEqual(missing, [])

    def test_includes_point_down_only(self):
        upwards = [f"{source} (floor {self.floor(source)}) includes {included} (floor {self.floor(included)})"
                   for source in self.sources for included in includes(source)
                   if included in self.sources
                   and self.floor(included) not in MAY_INCLUDE[self.floor(source)]]
        self.assertEqual(upwards, [])

    def test_every_include_is_written_from_the_root(self):
        unknown = [f"{source} includes {included}" for source in self.sources for included in includes(source)
                   if included not in self.sources]
        self.assertEqual(unknown, [])

    def test_no_two_files_include_each_other(self):
        below = {source: [name for name in includes(source) if name in self.sources] for source in self.sources}
        circles, done = [], set()

        def follow(source, way):
            if source in way:
                circles.append(" → ".join(way[way.index(source):] + [source]))
            elif source not in done:
                for lower in below[source]:
                    follow(lower, way + [source])
                done.add(source)

        for source in self.sources:
            follow(source, [])
        self.assertEqual(circles, [])


class OperatingSystem(unittest.TestCase):
    MACROS = re.compile(r"^\s*#\s*(?:el)?if.*\b(Q_OS_\w+|__APPLE__|__linux__|__MACH__|_WIN32|__unix__)", re.MULTILINE)

    def test_only_platform_asks_which_system_it_is(self):
        asking = [source for source in sources()
                  if not source.startswith("Platform/") and self.MACROS.search((HOUSE / source).read_text())]
        self.assertEqual(asking, [])

    def test_system_code_of_macos_stays_in_platform(self):
        self.assertEqual([source for source in sources()
                          if source.endswith(".mm") and not source.startswith("Platform/")], [])


class Size(unittest.TestCase):
    def test_no_source_is_longer_than_400_lines(self):
        long = [source for source in sources() if len((HOUSE / source).read_text().splitlines()) > 400]
        self.assertEqual(long, [])


if __name__ == "__main__":
    unittest.main(verbosity=1)
