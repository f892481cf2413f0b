"""The version and the date of the release: the same in all files, and compared with a tag."""

import re
import shutil
import subprocess
import unittest

from trees import BUILD, SOURCE, run, temporary_folder


def found(pattern, text):
    (match,) = re.findall(pattern, text, re.MULTILINE)
    return match


VERSION = found(r"^ +VERSION (\S+)$", (SOURCE / "CMakeLists.txt").read_text())
DATE = found(r"^set\(VANTLE_RELEASE_DATE (\S+)\)$", (SOURCE / "packaging/LinuxInstall.cmake").read_text())


class Version(unittest.TestCase):
    def test_is_that_of_the_newest_section_of_the_changelog(self):
        newest = re.search(r"^## (\S+) \((.+)\)$", (SOURCE / "CHANGELOG.md").read_text(), re.MULTILINE)
        self.assertEqual(newest[1], VERSION)
        self.assertIn(newest[2], ("unreleased", DATE))

    def test_is_that_of_the_software_centre_data_and_the_manual_page(self):
        metainfo = (BUILD / "packaging/com.vantle.settings.metainfo.xml").read_text()
        self.assertEqual(found(r'<release version="(.+)" date="(.+)"/>', metainfo), (VERSION, DATE))
        page = (BUILD / "packaging/vantle-settings.1").read_text()
        self.assertEqual(run("date", "--date", found(r"^\.Dd (.+)$", page), "+%F").strip(), DATE)

    def test_is_that_of_the_bundle_which_names_no_other(self):
        plist = (SOURCE / "packaging/macos/Info.plist.in").read_text()
        for key in ("CFBundleShortVersionString", "CFBundleVersion"):
            self.assertEqual(found(rf"<key>{key}</key>\s*<string>(.+)</string>", plist), "${PROJECT_VERSION}")

    def test_is_that_of_the_packages_and_of_the_program(self):
        self.assertIn(f'set(CPACK_PACKAGE_VERSION "{VERSION}")', (BUILD / "CPackConfig.cmake").read_text())
        self.assertEqual((BUILD / "packaging/version").read_text(), f"{VERSION}\n")


class Release(unittest.TestCase):
    """The check that the hosted workflow makes before it builds anything."""

    def check(self, tag, newest):
        with temporary_folder() as folder:
            for name in ("CMakeLists.txt", "packaging/LinuxInstall.cmake", "tools/check/release"):
                (folder / name).parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(SOURCE / name, folder / name)
            (folder / "CHANGELOG.md").write_text(f"# Changelog\n\n## {newest}\n\n## 0.1.0 (2020-01-01)\n")
            return subprocess.run([folder / "tools/check/release", tag], text=True, capture_output=True)

    def test_a_tag_of_the_version_with_a_dated_changelog_is_accepted(self):
        done = self.check(f"v{VERSION}", f"{VERSION} ({DATE})")
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_another_tag_is_refused(self):
        done = self.check("v99.0.0", f"{VERSION} ({DATE})")
        self.assertEqual((done.returncode, done.stdout),
                         (1, f"The tag is v99.0.0, but CMakeLists.txt says {VERSION}.\n"))

    def test_a_changelog_without_a_date_or_with_another_date_or_version_is_refused(self):
        for newest in (f"{VERSION} (unreleased)", f"{VERSION} (2020-01-01)", f"99.0.0 ({DATE})"):
            with self.subTest(newest=newest):
                done = self.check(f"v{VERSION}", newest)
                self.assertEqual(done.returncode, 1)
                self.assertIn(f"is '{newest}', but", done.stdout)


if __name__ == "__main__":
    unittest.main()
