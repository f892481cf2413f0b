"""The Debian package: its contents, its dependencies, and that it has no scripts."""

import re
import unittest

from trees import BUILD, SOURCE, files_below, run, temporary_folder


class DebianPackage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = cls.enterClassContext(temporary_folder())
        # With a umask that lets the group write to new files, which is the default of some systems.
        run("cpack", "--config", BUILD / "CPackConfig.cmake", "-G", "DEB", "-B", folder, umask=0o002)
        (cls.package,) = folder.glob("*.deb")
        cls.folder = folder

    def field(self, name):
        return run("dpkg-deb", "--field", self.package, name).strip()

    def test_its_file_name_has_name_version_and_architecture(self):
        architecture = run("dpkg", "--print-architecture").strip()
        self.assertEqual(self.package.name, f"vantle-settings_{self.field('Version')}_{architecture}.deb")

    def test_it_depends_on_linked_libraries_and_on_packages_needed_at_run_time(self):
        depends = self.field("Depends")
        for package in ("libc6", r"libqt6core6\w*", r"libqt6widgets6\w*", r"libqt6dbus6\w*", "qt6-wayland",
                        "fontconfig"):
            self.assertRegex(depends, rf"(^|, ){package}\b")
        self.assertIn("fonts-dejavu-core | ", depends)
        self.assertNotIn("-dev", depends)

    def test_its_maintainer_has_no_placeholder_address(self):
        self.assertRegex(self.field("Maintainer"), r"^[^<]+( <[^@<>]+@[^@<>]+>)?$")
        self.assertNotRegex(self.field("Maintainer"), r"\.(invalid|example|test|local)>|@example\.")

    def test_it_contains_the_licence(self):
        run("dpkg-deb", "--extract", self.package, self.folder / "licence")
        text = (self.folder / "licence/usr/share/doc/vantle-settings/copyright").read_text()
        for line in (SOURCE / "LICENSE").read_text().split():
            self.assertIn(line, text)

    def test_it_contains_the_files_of_an_installation_below_usr(self):
        run("cmake", "--install", BUILD, "--prefix", self.folder / "installed/usr")
        run("dpkg-deb", "--extract", self.package, self.folder / "extracted")
        self.assertEqual(files_below(self.folder / "extracted"), files_below(self.folder / "installed"))

    def test_everything_in_it_belongs_to_root_and_is_writable_by_nobody_else(self):
        for line in run("dpkg-deb", "--contents", self.package).splitlines():
            mode, owner = line.split()[:2]
            self.assertEqual(owner, "root/root", line)
            self.assertIsNone(re.match(r"-....w|-.......w|d....w|d.......w", mode), line)

    def test_it_runs_no_script_when_installed_or_removed(self):
        run("dpkg-deb", "--control", self.package, self.folder / "control")
        self.assertEqual(files_below(self.folder / "control"), {"control", "md5sums"})


if __name__ == "__main__":
    unittest.main()
