"""README's tables of files and requests, and all other lists of them, against the sources."""

import re
import unittest

from trees import SOURCE

README = (SOURCE / "README.md").read_text()
MANUAL = (SOURCE / "packaging/linux/vantle-settings.1.in").read_text()
PROGRAM = SOURCE / "VantleSettings"
SHARED_FILES = (PROGRAM / "Persistence/SharedFiles.h").read_text()
SHARED = re.findall(r'SharedFile \w+\{QStringLiteral\(u"([^"]+)"\)', SHARED_FILES)
ANNOUNCED = re.findall(r'SharedFile (\w+)\{QStringLiteral\(u"[^"]+"\),', SHARED_FILES)


class Tables(unittest.TestCase):
    def test_the_files_are_those_that_are_shared(self):
        self.assertGreater(len(SHARED), 5)
        named = set(re.findall(r"`~/(\.(?:vantle|claude)/[^`]+)`", README))
        self.assertEqual(named, set(SHARED))

    def test_the_manual_page_has_each_of_them(self):
        self.assertGreater(len(SHARED), 5)
        named = set(re.findall(r"^\.It Pa ~/(\.(?:vantle|claude)/.+)$", MANUAL, re.MULTILINE))
        self.assertEqual(named, set(SHARED))

    def test_the_reader_of_each_gets_all_the_samples_of_json(self):
        samples = (SOURCE / "tests/json/JsonCorpusTest.cpp").read_text()
        self.assertEqual(set(re.findall(r'\{u"(\.(?:vantle|claude)/[^"]+)"_s, ', samples)), set(SHARED))

    def test_the_reader_of_each_is_called_by_a_fuzzer(self):
        headers = [*(PROGRAM / "Persistence").glob("*.h"), PROGRAM / "Planning/Planning.h",
                   PROGRAM / "Shortcuts/Shortcuts.h"]
        readers = {reader for header in headers for reader in re.findall(r"\b(load\w*)\(\);", header.read_text())}
        self.assertGreater(len(readers), 5)
        fuzzers = "".join(fuzzer.read_text() for fuzzer in (SOURCE / "fuzz").glob("*.cpp"))
        self.assertEqual({reader for reader in readers if f"::{reader}()" not in fuzzers}, set())

    def test_the_tour_through_the_program_reads_or_writes_each(self):
        tour = (SOURCE / "tests/security/tour.py").read_text()
        # In demo mode nothing would be written.
        used = set(re.findall(r'"(\.(?:vantle|claude)/[^"]+)"', tour))
        self.assertEqual(used, set(SHARED) - {".vantle/demo-mode.json"})

    def test_the_agents_stand_in_shows_the_file_of_each_request(self):
        shown = (SOURCE / "tools/agent-listener/Notification.cpp").read_text()
        self.assertEqual({name for name in ANNOUNCED if not re.search(rf"\b{name}\b", shown)}, set())

    def test_the_requests_are_those_that_are_sent(self):
        sent = {request for source in PROGRAM.rglob("*") if source.suffix in (".cpp", ".h")
                for request in re.findall(r'u"(/settings/[a-z-]+)"', source.read_text())}
        self.assertGreater(len(sent), 5)
        self.assertEqual(set(re.findall(r"^\| `(/settings/[^`]+)` \|", README, re.MULTILINE)), sent)


if __name__ == "__main__":
    unittest.main()
