"""The build tree of the mutants: one object is compiled and one program linked for each."""

import ctypes
import fcntl
import json
import os
import pathlib
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import threading
import time

from folders import SLOW_TESTS
import switched

ROOT = pathlib.Path(__file__).resolve().parents[2]
TREE = ROOT / "build" / "mutate"
CONFIGURATION = ["-G", "Ninja", f"-DCMAKE_TOOLCHAIN_FILE={ROOT}/cmake/Clang.cmake", "-DCMAKE_BUILD_TYPE=Debug",
                 "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g0", "-DVANTLE_PRECOMPILED_HEADERS=ON",
                 "-DVANTLE_WARNINGS_ARE_ERRORS=OFF", "-DCMAKE_CXX_FLAGS=-w"]
MEMORY = 4 << 30
PR_SET_PDEATHSIG = 1
# A mutant may write to any path. In its mount namespace everything but its own folder is read-only, and that folder
# is also the user's home and /tmp, where the test library keeps what a program prints at its death.
GUARD = ('mount --bind "$0" "$0"; mount --bind "$0" "$1"; mount --bind "$0" /tmp; mount -o remount,bind,ro /; '
         'shift; exec "$@"')


def lock():
    """Locks the build tree for this run, until the returned file is closed. Two runs would delete each other's
    folders."""
    TREE.mkdir(parents=True, exist_ok=True)
    file = open(TREE / "lock", "w", encoding="utf-8")
    try:
        fcntl.flock(file, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        sys.exit("another run is under way in build/mutate")
    return file


def prepare(programs, jobs):
    """Builds the test programs as they are."""
    if not (TREE / "build.ninja").exists():
        subprocess.run(["cmake", "-S", ROOT, "-B", TREE, *CONFIGURATION], check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["ninja", f"-j{jobs}", "-C", TREE, "--quiet", *programs], check=True)


class Programs:
    """How each source is compiled and each test program linked and run."""

    def __init__(self, names):
        entries = json.loads((TREE / "compile_commands.json").read_text())
        self._compilations = {pathlib.Path(entry["file"]): shlex.split(entry["command"]) for entry in entries}
        self._links = {name: self._link(name) for name in names}
        self._tests = self._read_tests(names)
        self.compiler = entries[0]["command"].split()[0]

    @staticmethod
    def _link(name):
        words = shlex.split(subprocess.run(["ninja", "-C", TREE, "-t", "commands", "-s", f"bin/{name}"], check=True,
                                           capture_output=True, text=True).stdout)
        return words[words.index("&&") + 1:len(words) - words[::-1].index("&&") - 1]

    @staticmethod
    def _read_tests(names):
        shown = subprocess.run(["ctest", "--test-dir", TREE, "--show-only=json-v1"], check=True, capture_output=True)
        tests = {}
        for test in json.loads(shown.stdout)["tests"]:
            if test["name"] in names:
                properties = {entry["name"]: entry["value"] for entry in test.get("properties", [])}
                tests[test["name"]] = test["command"], dict(
                    line.split("=", 1) for line in properties.get("ENVIRONMENT", []))
        return tests

    def compiles(self, source):
        return source in self._compilations

    def compilation(self, source, copy, output):
        words = list(self._compilations[source])
        words[words.index("-o") + 1] = str(output)
        words[words.index(str(source))] = str(copy)
        for option in ("-MT", "-MF"):
            if option in words:
                del words[words.index(option):words.index(option) + 2]
        return [word for word in words if word != "-MD"]

    def link(self, name, objects, output):
        words = list(self._links[name])
        place = words.index("-o")
        # The linker uses an object that precedes the libraries instead of the one in a library.
        return words[:place] + ["-o", str(output), *map(str, objects)] + words[place + 2:]

    def run(self, name, program):
        command, environment = self._tests[name]
        return [str(program) if word == str(TREE / "bin" / name) else word for word in command], environment


class Together:
    """An object with many mutants of one source, and the programs that contain it. All slots share it."""

    def __init__(self, programs):
        self._folder = TREE / "mutants" / "together"
        self._programs = programs
        self._source, self._numbers, self._linked = None, {}, {}
        self._working = threading.Lock()
        shutil.rmtree(self._folder, ignore_errors=True)
        self._folder.mkdir(parents=True)

    def numbers(self, source, tokens, mutants):
        """Compiles the object for a source if needed. Returns the numbers of the mutants that it contains."""
        with self._working:
            if self._source != source:
                self._source, self._linked = source, {}
                self._numbers = self._compile(source, tokens, dict(enumerate(mutants)))
            return self._numbers

    def _compile(self, source, tokens, mutants):
        """Compiles the mutants together, without those that do not compile."""
        original, copy = source.read_bytes(), self._folder / source.name
        command = self._programs.compilation(source, copy, self._folder / "together.o")
        while True:
            text, held = switched.switched(tokens, original, mutants)
            copy.write_bytes(text)
            done = subprocess.run([*command, "-ferror-limit=0"], cwd=TREE, capture_output=True, text=True)
            if done.returncode == 0:
                return {mutants[number]: number for number in held}
            refused = switched.refused(done.stderr) & mutants.keys()
            if not refused:
                return {}
            for number in refused:
                del mutants[number]

    def program(self, slot, name):
        with self._working:
            if name not in self._linked:
                self._linked[name] = slot.link(name, [self._folder / "together.o"], self._folder / name)
            return self._linked[name]


class Slot:
    """A folder in which one mutant at a time is compiled, linked and run."""

    _limits = {}  # of every slot
    _measuring = threading.Lock()

    def __init__(self, number, programs):
        self.folder = TREE / "mutants" / str(number)
        self._programs = programs
        self._unchanged = {}
        shutil.rmtree(self.folder, ignore_errors=True)
        (self.folder / "home").mkdir(parents=True, exist_ok=True)

    def compile(self, source, text, *options):
        """Returns the object's bytes and its path; no bytes if the text does not compile."""
        copy, output = self.folder / source.name, self.folder / (source.stem + ".o")
        copy.write_bytes(text)
        output.unlink(missing_ok=True)
        command = self._programs.compilation(source, copy, output)
        if options:
            command = without_precompiled_headers(command) + list(options)
        status, _ = run(command, 600, 600, cwd=TREE)
        return (output.read_bytes() if status == 0 else b""), output

    def unchanged(self, source, *options):
        """The bytes of the object of a source as it is."""
        if (source, options) not in self._unchanged:
            self._unchanged[source, options] = self.compile(source, source.read_bytes(), *options)[0]
            if not self._unchanged[source, options]:
                sys.exit(f"{source.name} does not compile without any change, {' '.join(options)}")
        return self._unchanged[source, options]

    def link(self, name, objects, program=None):
        """Links the test program with these objects instead of the library's. Returns its path, or None if it does not
        link."""
        program = program or self.folder / name
        status, _ = run(self._programs.link(name, objects, program), 600, 600, cwd=TREE)
        return program if status == 0 else None

    def limits(self, name, slow):
        """The limits for a program in seconds: of processor time and of elapsed time. Checks first that the program
        passes without any change."""
        with self._measuring:
            if (name, slow) not in self._limits:
                before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
                status, seconds = self.test(TREE / "bin" / name, slow, (1200, 1200))
                if status != 0:
                    sys.exit(f"{name} fails without any change: {status}")
                processor_seconds = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - before
                self._limits[name, slow] = 3 + 10 * processor_seconds, 20 + 10 * seconds
            return self._limits[name, slow]

    def test(self, program, slow, limits, number=-1):
        """Runs a program's slow tests or its others. Returns the exit status, or None if a limit was exceeded, and the
        elapsed seconds. `number` is the mutant that the program chooses."""
        name = program.name
        command, environment = self._programs.run(name, program)
        work = self.folder / "home"
        guard = [ROOT / "tests/support/unshared", "--mount", "--", "sh", "-c", GUARD, work, os.path.expanduser("~")]
        result = run([*guard, *command], *limits, cwd=work, env={
            **os.environ, **environment, "TMPDIR": str(work), "GTEST_FAIL_FAST": "1",
            "GTEST_FILTER": ("" if slow else "-") + ":".join(SLOW_TESTS.get(name, [])),
            "QT_QPA_PLATFORM": "offscreen", "XDG_RUNTIME_DIR": str(work), switched.VARIABLE: str(number)})
        for left in work.iterdir():
            if left.is_dir() and not left.is_symlink():
                shutil.rmtree(left, ignore_errors=True)
            else:
                left.unlink()
        return result


def without_precompiled_headers(words):
    """The command without its precompiled headers, which fit only the options that they were compiled with."""
    kept = list(words)
    for option in ("-include-pch", "-include"):
        while option in kept:
            place = kept.index(option)
            del kept[place - 1:place + 3]
    return [word for word in kept if word not in ("-Winvalid-pch", "-fpch-instantiate-templates")]


def run(command, processor_seconds, elapsed_seconds, **options):
    """Returns the exit status, or None if a limit was exceeded, and the elapsed seconds. The limits are seconds of
    processor time and of elapsed time."""
    def restrain():
        # A mutant that outlives this tool would write to the folders of the next run.
        ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGKILL)
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
        resource.setrlimit(resource.RLIMIT_CPU, (int(processor_seconds) + 1, int(processor_seconds) + 2))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        resource.setrlimit(resource.RLIMIT_FSIZE, (2 * MEMORY, 2 * MEMORY))
    start = time.monotonic()
    with subprocess.Popen(list(map(str, command)), stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL, start_new_session=True, preexec_fn=restrain, **options) as process:
        try:
            status = process.wait(elapsed_seconds)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            status = None
    return (None if status == -signal.SIGXCPU else status), time.monotonic() - start
