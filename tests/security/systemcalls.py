"""What a program asks of the system, call by call, from its first instruction on."""

import re

# -D: the program keeps its own process, and the tracer watches from another. -f: and all that it starts.
_TRACER = ("strace", "-D", "-f", "--seccomp-bpf", "-qq", "-s", "4096", "-y", "-e")


class Trace:
    """Calls of these names, written to a file as they happen. `tool` is what to start the program with."""

    def __init__(self, file, calls):
        self._file = file
        self.tool = (*_TRACER, f"trace={calls}", "-o", str(file))

    def calls(self, *names):
        """Every call of one of these names as its whole line, joined where another thread came between."""
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
