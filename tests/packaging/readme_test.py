"""README's tables of files and requests, and the manual page's list of files, against the sources."""

import re
import unittest

from trees import SOURCE

README = (SOURCE / "README.md").read_text()
MANUAL = (SOURCE / "packaging/linux/vantle-settings.1.in").read_text()
PROGRAM = SOURCE / "VantleSettings"
SHARED = re.findall(r'SharedFile \w+\{QStringLiteral\(u"([^"]+)"\)', (PROGRAM / "Persistence/SharedFiles.h").read_text())


class Tables(unittest.TestCase):
    def test_the_files_are_those_that_are_shared(self):
        self.assertGreater(len(SHARED), 5)
        named = set(re.findall(r"`~/(\.(?:vantle|claude)/[^`]+)`", README))
        self.assertEqual(named, set(SHARED))

    def test_the_manual_page_has_each_of_them(self):
        self.assertGreater(len(SHARED), 5)
        named = set(re.findall(r"^\.It Pa ~/(\.(?:vantle|claude)/.+)$", MANUAL, re.MULTILINE))
        self.assertEqual(named, set(SHARED))

    def test_the_requests_are_those_that_are_sent(self):
        sent = {request for source in PROGRAM.rglob("*") if source.suffix in (".cpp", ".h")
                for request in re.findall(r'u"(/settings/[a-z-]+)"', source.read_text())}
        self.assertGreater(len(sent), 5)
        self.assertEqual(set(re.findall(r"^\| `(/settings/[^`]+)` \|", README, re.MULTILINE)), sent)


if __name__ == "__main__":
    unittest.main()
