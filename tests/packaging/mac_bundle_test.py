"""What is done to a macOS bundle and its disk image after the build: the minimum system, the signature and the
notarisation, with stand-ins for the tools that only a Mac has."""

import os
import plistlib
import stat
import unittest

from trees import SOURCE, run, temporary_folder

SCRIPTS = SOURCE / "packaging/macos"
MACH_O = bytes.fromhex("cffaedfe")
UNIVERSAL = bytes.fromhex("cafebabe")

# Prints the load commands, which a stand-in for a binary contains after its first four bytes.
OTOOL = """#!/bin/sh
tail -c +5 "$2"
"""
# Records its calls, and fails in the one that FAILING names.
RECORDING = """#!/bin/sh
printf '%s' "${0##*/}" >>"$RECORD"
printf ' [%s]' "$@" >>"$RECORD"
echo >>"$RECORD"
[ "${0##*/} $1" != "$FAILING" ]
"""


def built_for(version):
    return f"Load command 9\n      cmd LC_BUILD_VERSION\n  cmdsize 32\n platform 1\n    minos {version}\n      sdk 14.2\n"


def built_by_an_old_linker_for(version):
    return f"Load command 9\n      cmd LC_VERSION_MIN_MACOSX\n  cmdsize 16\n  version {version}\n      sdk 10.15\n"


class MacBundle(unittest.TestCase):
    def setUp(self):
        self.folder = self.enterContext(temporary_folder())
        self.contents = self.folder / "Vantle Settings.app/Contents"
        self.put("MacOS/Vantle Settings", MACH_O, built_for("12.0"))
        self.plist = self.contents / "Info.plist"
        self.plist.write_bytes(plistlib.dumps({"LSMinimumSystemVersion": "12.0", "CFBundleVersion": "1.0.0"}))
        self.record = self.folder / "record"
        self.record.touch()
        tools = self.folder / "tools"
        tools.mkdir()
        for name, text in (("otool", OTOOL), ("codesign", RECORDING), ("xcrun", RECORDING)):
            tool = tools / name
            tool.write_text(text)
            tool.chmod(tool.stat().st_mode | stat.S_IXUSR)
        self.environment = {**os.environ, "PATH": f"{tools}:{os.environ['PATH']}", "RECORD": str(self.record),
                            "FAILING": ""}

    def put(self, path, magic, text):
        file = self.contents / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(magic + text.encode())
        return file

    def script(self, name, **variables):
        definitions = [f"-D{key}={value}" for key, value in variables.items()]
        return run("cmake", *definitions, "-P", SCRIPTS / f"{name}.cmake", env=self.environment)

    def calls(self):
        return self.record.read_text().replace(str(self.folder) + "/", "").splitlines()

    def minimum(self):
        self.script("MinimumSystem", BUNDLE=self.contents.parent)
        said = plistlib.loads(self.plist.read_bytes())
        self.assertEqual(said["CFBundleVersion"], "1.0.0", "the rest of the file stays")
        return said["LSMinimumSystemVersion"]

    def test_the_minimum_system_is_that_of_the_program_when_the_toolkit_needs_less(self):
        self.put("Frameworks/QtCore.framework/Versions/A/QtCore", UNIVERSAL,
                 built_by_an_old_linker_for("10.14") + built_for("11.0"))
        self.assertEqual(self.minimum(), "12.0")

    def test_the_minimum_system_is_that_of_the_toolkit_when_it_needs_more(self):
        self.put("Frameworks/QtCore.framework/Versions/A/QtCore", UNIVERSAL, built_for("13.0") + built_for("13.3"))
        self.put("PlugIns/platforms/libqcocoa.dylib", MACH_O, built_for("9.9"))
        self.put("Frameworks/QtCore.framework/Versions/A/Resources/Info.plist", b"<?xm", "minos 99.0")
        self.assertEqual(self.minimum(), "13.3")

    def test_a_binary_that_does_not_say_what_it_needs_ends_the_packaging(self):
        self.put("PlugIns/platforms/libqcocoa.dylib", MACH_O, "Load command 9\n      cmd LC_UUID\n")
        with self.assertRaisesRegex(AssertionError, r"does not say which\s+macOS"):
            self.minimum()

    def bundle_with_toolkit(self):
        framework = self.put("Frameworks/QtCore.framework/Versions/A/QtCore", UNIVERSAL, built_for("12.0")).parent
        (framework.parent / "Current").symlink_to("A")
        self.put("Frameworks/libsimdjson.1.dylib", MACH_O, built_for("12.0"))
        (self.contents / "Frameworks/libsimdjson.dylib").symlink_to("libsimdjson.1.dylib")
        self.put("PlugIns/platforms/libqcocoa.dylib", MACH_O, built_for("12.0"))
        return self.contents.parent

    def test_without_an_identity_everything_is_signed_ad_hoc_from_the_inside_out(self):
        self.script("Sign", BUNDLE=self.bundle_with_toolkit())
        app = "Vantle Settings.app"
        self.assertEqual(self.calls(), [
            f"codesign [--force] [--sign] [-] [{app}/Contents/Frameworks/libsimdjson.1.dylib]",
            f"codesign [--force] [--sign] [-] [{app}/Contents/PlugIns/platforms/libqcocoa.dylib]",
            f"codesign [--force] [--sign] [-] [{app}/Contents/Frameworks/QtCore.framework]",
            f"codesign [--force] [--sign] [-] [{app}]",
            f"codesign [--verify] [--deep] [--strict] [{app}]"])

    def test_with_an_identity_everything_has_the_hardened_runtime_and_a_time_stamp(self):
        identity = "Developer ID Application: Vantle (0000000000)"
        self.script("Sign", BUNDLE=self.bundle_with_toolkit(), IDENTITY=identity)
        signed = self.calls()[:-1]
        self.assertEqual(len(signed), 4)
        for call in signed:
            self.assertIn(f"[--sign] [{identity}] [--options] [runtime] [--timestamp]", call)

    def test_a_signature_that_fails_ends_the_packaging(self):
        self.environment["FAILING"] = "codesign --verify"
        with self.assertRaisesRegex(AssertionError, "ended with 1"):
            self.script("Sign", BUNDLE=self.bundle_with_toolkit())

    def test_without_credentials_the_image_is_left_alone(self):
        image = self.folder / "vantle.dmg"
        for known in ({}, {"CPACK_VANTLE_SIGNING_IDENTITY": "Vantle"}, {"CPACK_VANTLE_NOTARY_PROFILE": "vantle"}):
            with self.subTest(known=known):
                said = self.script("Notarise", CPACK_PACKAGE_FILES=image, **known)
                self.assertIn("Not notarised", said)
                self.assertEqual(self.calls(), [])

    def test_with_credentials_the_image_is_signed_notarised_and_stapled(self):
        self.script("Notarise", CPACK_PACKAGE_FILES=self.folder / "vantle.dmg", CPACK_VANTLE_SIGNING_IDENTITY="Vantle",
                    CPACK_VANTLE_NOTARY_PROFILE="vantle")
        self.assertEqual(self.calls(), [
            "codesign [--force] [--sign] [Vantle] [--timestamp] [vantle.dmg]",
            "xcrun [notarytool] [submit] [vantle.dmg] [--keychain-profile] [vantle] [--wait]",
            "xcrun [stapler] [staple] [vantle.dmg]"])

    def test_a_refused_notarisation_ends_the_packaging(self):
        self.environment["FAILING"] = "xcrun stapler"
        with self.assertRaisesRegex(AssertionError, "ended with 1"):
            self.script("Notarise", CPACK_PACKAGE_FILES=self.folder / "vantle.dmg",
                        CPACK_VANTLE_SIGNING_IDENTITY="Vantle", CPACK_VANTLE_NOTARY_PROFILE="vantle")


if __name__ == "__main__":
    unittest.main()
