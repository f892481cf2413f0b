"""The system calls of a program from its start to its end."""

import re

# -D runs the program in the started process, and the tracer in another one. -f traces child processes too.
_TRACER = ("strace", "-D", "-f", "--seccomp-bpf", "-qq", "-s", "4096", "-y", "-e")


class Trace:
    """Writes the calls with these names to a file as they happen. `tool` is the command to start the program with."""

    def __init__(self, file, calls):
        self._file = file
        self.tool = (*_TRACER, f"trace={calls}", "-o", str(file))

    def calls(self, *names):
        """The calls of one of these names, each as one line, also if calls of other threads interrupted it."""
        begun = {}
        found = []
        for line in self._file.read_text(errors="replace").splitlines():
            process, call = line.split(maxsplit=1)
            if call.endswith("<unfinished ...>"):
                begun[process] = call.removesuffix("<unfinished ...>")
                continue
            resumed = re.match(r"<\.\.\. \w+ resumed>(.*)", call)
            if resumed:
                call = begun.pop(process, "") + resumed.group(1)
            if re.match(rf"({'|'.join(names)})\(", call):
                found.append(call)
        return found
