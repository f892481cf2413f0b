"""The tokens of a source, as clang's lexer sees them."""

import dataclasses
import re
import subprocess

BRACKETS = {"(": ")", "[": "]", "{": "}"}
RECORD = re.compile(rb"(\w+) '(?:.*?)'\t[^\n]*?Loc=<[^\n]*?:(\d+):(\d+)>\n", re.DOTALL)


@dataclasses.dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int  # offset in the source, in bytes
    end: int
    line: int
    spaced: bool  # whether white space or a comment precedes it

    def is_name(self):
        return self.kind == "raw_identifier"


def tokens_of(compiler, path):
    """The tokens of a source without white space, comments and preprocessor directives."""
    source = path.read_bytes()
    lines = [0, *(match.end() for match in re.finditer(rb"\n", source))]
    lexed = subprocess.run([compiler, "-std=c++20", "-fsyntax-only", "-Xclang", "-dump-raw-tokens", path],
                           capture_output=True, check=True).stderr
    places = [(kind.decode(), int(line), lines[int(line) - 1] + int(column) - 1)
              for kind, line, column in RECORD.findall(lexed)]
    found, directive, spaced = [], None, False
    for (kind, line, start), (_, _, end) in zip(places, places[1:] + [("eof", 0, len(source))]):
        if kind == "hash" and not source[lines[line - 1]:start].strip():
            directive = line
        if kind in ("unknown", "comment"):
            spaced = True
        elif kind != "eof":
            if line != directive:
                found.append(Token(kind, source[start:end].decode(), start, end, line, spaced))
            spaced = False
    return found


def partners(tokens):
    """Maps the index of each opening bracket to that of its closing one, and the other way round."""
    result, open_ones = {}, []
    for index, token in enumerate(tokens):
        if token.text in BRACKETS:
            open_ones.append(index)
        elif token.text in BRACKETS.values():
            other = open_ones.pop()
            assert BRACKETS[tokens[other].text] == token.text, f"line {token.line}: {token.text}"
            result[other], result[index] = index, other
    return result
