"""The source archive: it contains only sources, and all that are needed to build the program."""

import unittest

from trees import BUILD, files_below, run, temporary_folder


class SourceArchive(unittest.TestCase):
    def test_contains_only_sources_and_builds_the_program(self):
        with temporary_folder() as folder:
            run("cpack", "--config", BUILD / "CPackSourceConfig.cmake", "-B", folder / "archive")
            (archive,) = (folder / "archive").glob("*.tar.gz")
            run("tar", "-xzf", archive, "-C", folder)
            (source,) = folder.glob("vantle-settings-*")

            files = files_below(source)
            self.assertFalse([file for file in files if file.startswith(("build/", ".git/"))])
            self.assertTrue({"CMakeLists.txt", "run", "VantleSettings/Foundation/Seam.h"} <= files)

            build = folder / "build"
            run("cmake", "-S", source, "-B", build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                "-DVANTLE_TESTS=OFF")
            run("cmake", "--build", build)
            run("cmake", "--install", build, "--prefix", folder / "installed")
            self.assertIn("bin/vantle-settings", files_below(folder / "installed"))


if __name__ == "__main__":
    unittest.main()
