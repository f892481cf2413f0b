"""What Orca says while every page is used by keyboard, compared with stored transcripts.

A transcript lists key strokes, and below each the utterances after it. VANTLE_STORE_TRANSCRIPTS=1 stores the present
utterances; read the difference aloud before you keep it.
"""

import os
import pathlib
import subprocess
import unittest

from harness.case import DesktopCase
from harness.orca import Orca
from harness.portal import FilePortal
from harness.waiting import eventually

_TRANSCRIPTS = pathlib.Path(__file__).resolve().parent / "orca"
_STORE = "VANTLE_STORE_TRANSCRIPTS" in os.environ
_VERSION = "43"  # of Orca, with which the transcripts were stored
_HOME = "/home/user"
_PROGRAM = "/usr/bin/vantle-settings"


def installed_version():
    return subprocess.run(["orca", "--version"], capture_output=True, text=True, timeout=60).stdout.strip()


@unittest.skipUnless(installed_version().startswith(_VERSION), f"the transcripts are of Orca {_VERSION}")
class Transcript(DesktopCase):
    def setUp(self):
        super().setUp()
        self.orca = Orca(self.home.parent / f"{self.home.name}.orca")
        self.addCleanup(self.orca.close)

    def test_general(self):
        self.replay("general")

    def test_planning(self):
        for name in ("alpha", "beta"):
            (self.home / name).mkdir()
        self.write("plan/projects.toml", "".join(
            f'[[projects]]\nname = "{name}"\npath = "{self.home}/{name.lower()}"\n'
            for name in ("Alpha", "Beta", "Gone")))
        self.write(".vantle/planning.json", f'{{"root":"{self.home}/plan"}}')
        self.write(".vantle/sessions.json", f'[{{"id":"1","cwd":"{self.home}/alpha/src"}}]')
        self.replay("planning")

    def test_while_the_portals_folder_dialog_is_open(self):
        self.addCleanup(FilePortal().close)
        self.replay("portal")

    def test_browser_patterns(self):
        self.write(".vantle/sessions.json", '[{"id":"1","cwd":"/work/alpha"},{"id":"2","cwd":"/work/beta"}]')
        self.write(".claude/browser-patterns.json", '{"/work/alpha":["https://alpha.example/*"]}')
        self.replay("browser-patterns")

    def test_data_and_privacy(self):
        self.write(".vantle/sessions.json", '[{"id":"1","cwd":"/work/alpha"}]')
        self.replay("data-and-privacy")

    def test_about(self):
        self.replay("about")

    def replay(self, name):
        """Presses the keys of a transcript, and compares the utterances."""
        file = _TRANSCRIPTS / f"{name}.txt"
        steps = read(file.read_text())
        self.start()
        said = [("start", self.listen(dict(steps[:1]).get("start", [])))]
        for strokes, expected in steps[1:]:
            self.desktop.input.press(*strokes.split())
            said.append((strokes, self.listen(expected)))
        if _STORE:
            file.write_text(written(said))
            self.fail("stored anew; read the difference aloud, then run without VANTLE_STORE_TRANSCRIPTS")
        self.assertEqual(written(said), written(steps))

    def listen(self, expected):
        """Returns the utterances after a stroke. Waits for as many as are expected; while storing, when the number is
        unknown, until none has followed the last for two seconds."""
        try:
            if _STORE:
                while True:
                    before = len(self.orca.spoken)
                    eventually(lambda: len(self.orca.spoken) > before, "there is no further utterance", 2)
            eventually(lambda: len(self.orca.spoken) >= len(expected), "there are fewer utterances than expected")
        except AssertionError:
            pass  # while storing, this is the end; otherwise the comparison shows what is missing
        self.orca.settle()
        return [self.with_fixed_paths(text) for text in self.orca.take()]

    def with_fixed_paths(self, text):
        return text.replace(self.desktop.program, _PROGRAM).replace(str(self.home), _HOME)


def read(text):
    """The steps of a transcript: pairs of strokes and a list of utterances."""
    steps = []
    for line in text.splitlines():
        if line.startswith("    "):
            steps[-1][1].append(line.strip())
        elif line:
            steps.append((line, []))
    return steps


def written(steps):
    return "".join("\n".join([strokes, *(f"    {text}" for text in said)]) + "\n" for strokes, said in steps)
