"""Every point of SECURITY.md names its tests, and these exist. promises_test.py SOURCE"""

import pathlib
import re
import sys
import unittest

SOURCE = pathlib.Path(sys.argv[1])


class Promises(unittest.TestCase):
    def test_every_point_names_tests_that_exist(self):
        text = (SOURCE / "SECURITY.md").read_text()
        table = text.split("| point | test |\n| --- | --- |\n")[1].split("\n\n")[0]
        points = [[cell.strip() for cell in line.strip("|").split(" | ")] for line in table.splitlines()]
        self.assertGreater(len(points), 10)
        for point, tests in points:
            with self.subTest(point=point):
                named = re.findall(r"`([^`]+)`", tests)
                self.assertTrue(named)
                self.assertEqual([file for file in named if not (SOURCE / file).is_file()], [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
