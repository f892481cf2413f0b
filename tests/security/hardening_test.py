"""The release has the protections against memory errors that compiler and linker were asked for.
hardening_test.py PROGRAM COMPILE_COMMANDS"""

import json
import platform
import re
import subprocess
import sys
import unittest

PROGRAM, COMMANDS = sys.argv[1:3]
X86 = platform.machine() == "x86_64"
# The instructions that an indirect jump may land on.
LANDINGS = {"endbr64"} if X86 else {"bti", "paciasp"}


def output_of(*command):
    return subprocess.run(command, text=True, check=True, stdout=subprocess.PIPE).stdout


class Program(unittest.TestCase):
    def test_is_loaded_at_a_random_address(self):
        self.assertRegex(output_of("readelf", "--file-header", PROGRAM), r"Type:\s+DYN")
        self.assertRegex(output_of("readelf", "--dynamic", PROGRAM), r"FLAGS_1\).*\bPIE\b")

    def test_has_read_only_relocations_from_the_start(self):
        self.assertIn("GNU_RELRO", output_of("readelf", "--program-headers", PROGRAM))
        self.assertRegex(output_of("readelf", "--dynamic", PROGRAM), r"FLAGS_1\).*\bNOW\b")

    def test_has_no_memory_that_is_writable_and_executable(self):
        headers = output_of("readelf", "--program-headers", "--wide", PROGRAM)
        self.assertRegex(headers, r"GNU_STACK .* RW +0x")
        self.assertNotRegex(headers, r" RWE ")
        self.assertNotIn("TEXTREL", output_of("readelf", "--dynamic", PROGRAM))

    def test_checks_its_stack_and_its_library_calls(self):
        imported = output_of("nm", "--dynamic", "--undefined-only", PROGRAM)
        self.assertIn(" __stack_chk_fail@", imported)
        self.assertRegex(imported, r" __(?!stack)\w+_chk@")

    def test_every_exported_function_starts_with_a_landing_instruction(self):
        first = dict(re.findall(r"^[0-9a-f]+ <([^>]+)>:\n +[0-9a-f]+:\s+(\S+)",
                                output_of("objdump", "--disassemble", "--no-show-raw-insn", PROGRAM), re.MULTILINE))
        symbols = [line.split() for line in output_of("nm", "--defined-only", "--extern-only", PROGRAM).splitlines()]
        functions = {name for _, kind, name in symbols if kind in "TW"} & first.keys()
        self.assertIn("main", functions)
        unmarked = {name for name in functions if first[name] not in LANDINGS}
        self.assertEqual(unmarked - {"_start", "_init", "_fini"}, set())


class Sources(unittest.TestCase):
    def test_each_is_compiled_with_every_guard(self):
        guards = {"-fstack-protector-strong", "-fstack-clash-protection", "-D_FORTIFY_SOURCE=2"}
        if X86:
            guards.add("-fcf-protection=full")
        with open(COMMANDS, encoding="utf-8") as file:
            commands = [entry for entry in json.load(file) if "/VantleSettings/" in entry["file"]]
        self.assertTrue(commands)
        for entry in commands:
            self.assertEqual(guards - set(entry["command"].split()), set(), entry["file"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
