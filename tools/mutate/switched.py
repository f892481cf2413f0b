"""A source with all mutants inside its functions' bodies, which are compiled and linked at once. The program chooses
one when it starts. A mutant outside a body, or that does not compile in this way, is tried in an object of its own."""

import re

from tokens import partners

VARIABLE = "VANTLE_MUTANT"
BEFORE_ALL = f"""#include <cstdlib>
static int vantleMutant;
__attribute__((constructor(101))) static void chooseMutant()
{{
    const char *const number = std::getenv("{VARIABLE}");
    vantleMutant = number ? std::atoi(number) : -1;
}}
"""
PLACE = "mutant-"
BEFORE_A_BODY = (")", "const", "noexcept", "override", "final")


def switched(tokens, source, mutants):
    """Returns the source's text with these mutants, a dictionary by number, and the numbers of those that are in the
    text."""
    parts, place, held = [BEFORE_ALL.encode(), b'#line 1 "source"\n'], 0, set()
    for first, last, is_void in bodies(tokens, partners(tokens)):
        inside = {number: mutant for number, mutant in mutants.items()
                  if first.start < mutant.start and mutant.end < last.end}
        if not inside:
            continue
        parts.append(source[place:first.end] + b" switch (vantleMutant) {\n")
        for number, mutant in inside.items():
            body = source[first.start:mutant.start] + mutant.text.encode() + source[mutant.end:last.end]
            parts.append(f'#line 1 "{PLACE}{number}"\ncase {number}: '.encode() + body +
                         (b" return;\n" if is_void else b" __builtin_trap();\n"))
        parts.append(f'}}\n#line {first.line} "source"\n'.encode())
        place = first.end
        held |= inside.keys()
    return b"".join([*parts, source[place:]]), held


def inside_bodies(tokens, mutants):
    """The mutants that are inside bodies of functions."""
    places = [(first.start, last.end) for first, last, _ in bodies(tokens, partners(tokens))]
    return [mutant for mutant in mutants if any(start < mutant.start and mutant.end < end for start, end in places)]


def refused(messages):
    """The numbers of the mutants that the compiler names."""
    return {int(number) for number in re.findall(rf'{PLACE}(\d+):\d+:\d+: (?:fatal )?error', messages)} or \
        {int(number) for number in re.findall(rf'{PLACE}(\d+):\d+:\d+: note', messages)}


def bodies(tokens, pairs):
    """Yields the first and last token of each body of a function, and whether the function returns nothing."""
    index, start, classes = 0, 0, []
    while index < len(tokens):
        text = tokens[index].text
        if text == "{":
            head = top_level(tokens, pairs, start, index)
            words = [token.text for token in head]
            if "(" not in words and ("namespace" in words or "class" in words or "struct" in words) and \
                    "enum" not in words and "=" not in words:
                classes += [token.text for token in head if token.is_name()]
                start = index = index + 1
                continue
            if "(" in words and "=" not in words and "constexpr" not in words and \
                    tokens[index - 1].text in BEFORE_A_BODY:
                name = words[words.index("(") - 1]
                is_constructor = name in classes or words[:words.index("(")].count(name) == 2
                yield tokens[index], tokens[pairs[index]], "void" in words or "~" in words or is_constructor
            index = pairs[index] + 1
            if index < len(tokens) and tokens[index].text not in (";", ",", "{", "(", ")"):
                start = index
        elif text in "([":
            index = pairs[index] + 1
        else:
            index += 1
            if text in (";", "}") or text == ":" and tokens[index - 2].text in ("public", "private", "protected"):
                start = index


def top_level(tokens, pairs, start, end):
    """The tokens from start to end that are outside brackets, of templates too."""
    found, index, angles = [], start, 0
    while index < end:
        text = tokens[index].text
        angles += {"<": 1, ">": -1, ">>": -2}.get(text, 0) if "operator" not in [token.text for token in found] else 0
        if angles == 0 and text != ">":
            found.append(tokens[index])
        index = pairs[index] + 1 if text in "([{" else index + 1
    return found
