"""`cmake --install` below a prefix: complete, found by a desktop, and accepted by the standards' own checkers."""

import re
import shutil
import struct
import unittest

from trees import BUILD, SOURCE, files_below, run, temporary_folder

ICON_SIZES = (16, 22, 24, 32, 48, 64, 96, 128, 256, 512)


def picture_size(path):
    signature, width, height = struct.unpack(">16s2I", path.read_bytes()[:24])
    assert signature.startswith(b"\x89PNG\r\n\x1a\n"), f"{path} is no PNG"
    return width, height


def check_metainfo(*arguments):
    """Runs the checker. From version 1.0 on it warns of a missing homepage, which the program does not have."""
    version = re.search(r"(\d+)\.", run("appstreamcli", "--version"))
    no_homepage = ["--override=url-homepage-missing=info"] if int(version[1]) >= 1 else []
    run("appstreamcli", *arguments[:1], "--no-net", *no_homepage, *arguments[1:])


class Installation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.prefix = cls.enterClassContext(temporary_folder())
        run("cmake", "--install", BUILD, "--prefix", cls.prefix)
        cls.share = cls.prefix / "share"

    def test_contains_exactly_the_documented_files(self):
        expected = {
            "bin/vantle-settings",
            "share/applications/com.vantle.settings.desktop",
            "share/dbus-1/services/com.vantle.settings.service",
            "share/doc/vantle-settings/THIRD-PARTY.md",
            "share/doc/vantle-settings/copyright",
            "share/icons/hicolor/scalable/apps/com.vantle.settings.svg",
            "share/man/man1/vantle-settings.1",
            "share/metainfo/com.vantle.settings.metainfo.xml",
            "share/vantle-settings/version",
            "share/vantle-settings/Fonts/OFL.txt",
        }
        expected |= {f"share/vantle-settings/Fonts/JetBrainsMono-{face}.ttf"
                     for face in ("Regular", "Medium", "SemiBold", "Bold")}
        expected |= {f"share/icons/hicolor/{size}x{size}/apps/com.vantle.settings.png" for size in ICON_SIZES}
        self.assertEqual(files_below(self.prefix), expected)

    def test_the_desktop_entry_is_valid(self):
        entry = self.share / "applications/com.vantle.settings.desktop"
        known = self.prefix / "checked" / entry.name
        known.parent.mkdir()
        # The checker of Debian 12 does not know this key yet.
        known.write_text(entry.read_text().replace("SingleMainWindow=true\n", ""))
        try:
            self.assertEqual(run("desktop-file-validate", known), "")
        finally:
            shutil.rmtree(known.parent)

    def test_a_desktop_starts_it_once_over_the_session_bus(self):
        entry = (self.share / "applications/com.vantle.settings.desktop").read_text().splitlines()
        self.assertIn("DBusActivatable=true", entry)
        self.assertIn("SingleMainWindow=true", entry)
        service = (self.share / "dbus-1/services/com.vantle.settings.service").read_text()
        self.assertEqual(service, f"[D-BUS Service]\nName=com.vantle.settings\nExec={self.prefix}/bin/vantle-settings\n")

    def test_the_software_centre_data_is_valid(self):
        check_metainfo("validate", "--pedantic", "--explain",
                       self.share / "metainfo/com.vantle.settings.metainfo.xml")

    def test_the_software_centre_data_fits_the_installed_tree(self):
        check_metainfo("validate-tree", self.prefix)

    def test_the_manual_page_has_no_flaw(self):
        page = self.share / "man/man1/vantle-settings.1"
        self.assertEqual(run("mandoc", "-T", "lint", "-W", "style", page), "")
        self.assertIn("VANTLE-SETTINGS", run("mandoc", "-T", "utf8", page))

    def test_the_service_manager_accepts_the_unit_that_the_documents_describe(self):
        readme = (SOURCE / "README.md").read_text()
        (unit,) = re.findall(r"^```\n(\[Unit\]\n.*?)^```$", readme, re.MULTILINE | re.DOTALL)
        page = (self.share / "man/man1/vantle-settings.1").read_text()
        (short,) = re.findall(r"^\.Bd .*?\n(\[Service\]\n.*?)^\.Ed$", page, re.MULTILINE | re.DOTALL)
        self.assertTrue(unit.endswith(f"\n\n{short}"))
        with temporary_folder() as folder:
            file = folder / "com.vantle.agent.service"
            file.write_text(re.sub("ExecStart=.*", "ExecStart=/bin/true", unit))
            self.assertEqual(run("systemd-analyze", "verify", "--user", file, env={"XDG_RUNTIME_DIR": str(folder),
                                 "HOME": str(folder), "PATH": "/usr/bin:/bin"}), "")

    def test_every_icon_has_the_size_of_its_folder_and_is_not_empty(self):
        for size in ICON_SIZES:
            picture = self.share / f"icons/hicolor/{size}x{size}/apps/com.vantle.settings.png"
            with self.subTest(size=size):
                self.assertEqual(picture_size(picture), (size, size))
                self.assertGreater(picture.stat().st_size, 20 * size)

    def test_the_version_has_three_numbers(self):
        self.assertRegex((self.share / "vantle-settings/version").read_text(), r"\A\d+\.\d+\.\d+\n\Z")

    def test_the_program_looks_for_no_library_outside_the_system(self):
        dynamic = run("readelf", "--dynamic", self.prefix / "bin/vantle-settings")
        self.assertNotRegex(dynamic, r"\((RPATH|RUNPATH)\)")


if __name__ == "__main__":
    unittest.main()
