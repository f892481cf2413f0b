"""The changes that are made to a source, one at a time. Those that do not compile are dropped when they are tried."""

import dataclasses

from tokens import partners

OPERATORS = {
    "==": ["!="], "!=": ["=="], "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
    "&&": ["||"], "||": ["&&"],
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"], "&": ["|"], "|": ["&"], "^": ["&"],
    "<<": [">>"], ">>": ["<<"], "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="], "|=": ["&="], "&=": ["|="],
    "++": ["--"], "--": ["++"],
}
UNARY = ("!", "-", "~")
NAMES = {
    "true": "false", "false": "true", "stable_sort": "sort", "min": "max", "max": "min", "any_of": "all_of",
    "all_of": "any_of", "startsWith": "endsWith", "endsWith": "startsWith", "first": "last", "last": "first",
    "front": "back", "back": "front", "append": "prepend", "prepend": "append", "indexOf": "lastIndexOf",
    "lastIndexOf": "indexOf", "left": "right", "right": "left", "toLower": "toUpper", "toUpper": "toLower",
    "floor": "ceil", "ceil": "floor", "lower_bound": "upper_bound", "upper_bound": "lower_bound",
}
NO_STATEMENTS = {"const", "auto", "static", "constexpr", "using", "struct", "class", "enum", "namespace", "template",
                 "case", "default", "friend", "typedef", "static_assert", "explicit", "virtual", "public",
                 "private", "protected", "do", "else", "try"}
CONTROL = ("if", "for", "while", "switch")
JUMPS = ("break", "continue", "return")
CONDITIONS = {"if": ("true", "false"), "while": ("false",)}


@dataclasses.dataclass(frozen=True)
class Mutant:
    line: int
    start: int
    end: int
    text: str   # replaces the bytes from start to end
    what: str   # a description for people

    def applied(self, source):
        return source[:self.start] + self.text.encode() + source[self.end:]


def mutants_of(tokens, source):
    """All changes in the order of their places."""
    found = []

    def add(first, last, text, what=None):
        before = source[first.start:last.end].decode()
        found.append(Mutant(first.line, first.start, last.end, text, what or f"{shown(before)} → {shown(text)}"))

    pairs = partners(tokens)
    for index, token in enumerate(tokens):
        of_token(tokens, index, add)
        if token.text in CONDITIONS and tokens[index + 1].text == "(":
            first, last = tokens[index + 2], tokens[pairs[index + 1] - 1]
            before = source[first.start:last.end].decode()
            for value in CONDITIONS[token.text]:
                # The condition stays in the text, so that the variables in it are still used.
                operator = "||" if value == "true" else "&&"
                add(first, last, f"({before}) {operator} {value}", f"{token.text} ({shown(before)}) → {value}")
        elif token.text == "?":
            of_choice(tokens, index, pairs, source, add)
        elif token.text == "return" and tokens[index + 1].text not in (";", "{"):
            last = tokens[end_of_statement(tokens, index, pairs) - 1]
            add(tokens[index + 1], last, "{}", f"{shown(source[token.start:last.end].decode())} → return {{}}")
    of_statements(tokens, pairs, source, add)
    return sorted(set(found), key=lambda mutant: (mutant.start, mutant.end, mutant.text))


def shown(text):
    text = " ".join(text.split())
    return f"`{text if len(text) <= 70 else text[:67] + '…'}`"


def of_token(tokens, index, add):
    token, before, after = tokens[index], tokens[index - 1], tokens[index + 1] if index + 1 < len(tokens) else None
    if after is None or before.text == "operator":
        return
    # An operator with white space on both sides is binary; a reference or a template's bracket has none on one side.
    binary = token.spaced and after.spaced
    if token.text in OPERATORS and (binary or token.text in ("++", "--")):
        for other in OPERATORS[token.text]:
            add(token, token, other)
    elif token.text in UNARY and not after.spaced and not (before.is_name() and before.text != "return"):
        add(token, token, "", f"{shown(token.text + after.text)} → {shown(after.text)}")
    elif token.text in NAMES:
        add(token, token, NAMES[token.text])
    elif token.kind == "numeric_constant":
        of_number(token, add)
    elif token.kind.endswith("char_constant"):
        quote = token.text.index("'")
        add(token, token, token.text[:quote] + ("'#'" if token.text[quote:] != "'#'" else "'%'"))
    elif token.kind.endswith("string_literal") and '"' in token.text and "R\"" not in token.text:
        end = token.text.rindex('"')
        add(token, token, token.text[:end] + "~" + token.text[end:])
        start = token.text.index('"') + 1
        if start < end:
            add(token, token, token.text[:start] + token.text[end:])


def of_number(token, add):
    digits = token.text.rstrip("uUlLfF") if not token.text.lower().startswith("0x") else token.text.rstrip("uUlL")
    suffix = token.text[len(digits):]
    try:
        value = int(digits.replace("'", ""), 0)
    except ValueError:
        add(token, token, f"(2 * {token.text})")
        return
    add(token, token, f"{value + 1}{suffix}")
    if value > 0:
        add(token, token, f"{value - 1}{suffix}")


def end_of_statement(tokens, index, pairs):
    """The index of the next semicolon outside brackets."""
    while tokens[index].text != ";":
        if tokens[index].text in "([{":
            index = pairs[index]
        index += 1
    return index


def of_choice(tokens, index, pairs, source, add):
    """`a ? b : c` with its arms exchanged."""
    colon, depth = index + 1, 0
    while tokens[colon].text != ":" or depth:
        depth += {"?": 1, ":": -1}.get(tokens[colon].text, 0)
        colon = pairs[colon] + 1 if tokens[colon].text in "([{" else colon + 1
    end = colon + 1
    while tokens[end].text not in (";", ",", ")", "]", "}"):
        end = pairs[end] + 1 if tokens[end].text in "([{" else end + 1
    arms = [source[tokens[index + 1].start:tokens[colon - 1].end].decode(),
            source[tokens[colon + 1].start:tokens[end - 1].end].decode()]
    add(tokens[index + 1], tokens[end - 1], f"{arms[1]} : {arms[0]}",
        f"{shown(f'? {arms[0]} : {arms[1]}')} → arms exchanged")


def of_statements(tokens, pairs, source, add):
    """Leaves statements out, and exchanges neighbouring ones."""
    def text(first, end):
        return source[tokens[first].start:tokens[end].end].decode()

    previous = None
    for first, end in statements(tokens, pairs):
        if tokens[first].text not in CONTROL:
            # An empty statement remains, as it may be the whole body of a condition.
            add(tokens[first], tokens[end], ";", f"{shown(text(first, end))} left out")
        if tokens[first].text in JUMPS or tokens[first - 1].text not in (";", "{", "}"):
            continue
        if previous and previous[1] + 1 == first:
            add(tokens[previous[0]], tokens[end], f"{text(first, end)} {text(*previous)}",
                f"{shown(text(*previous))} after {shown(text(first, end))}")
        previous = first, end


def statements(tokens, pairs):
    """First and last index of each statement that declares nothing."""
    for index in range(1, len(tokens)):
        before = tokens[index - 1].text
        if before in (";", "{", "}", "else") or before == ":" and tokens[index - 3].text in ("case", "::") or \
                before == ")" and tokens[pairs[index - 1] - 1].text in ("if", "for", "while"):
            end = end_of(tokens, index, pairs)
            if end is not None:
                yield index, end


def end_of(tokens, index, pairs):
    """The index of a statement's last token; None for what is no statement."""
    token = tokens[index]
    if token.text in CONTROL:
        body = pairs[index + 1] + 1
        end = pairs[body] if tokens[body].text == "{" else end_of_statement(tokens, body, pairs)
        while token.text == "if" and tokens[end + 1].text == "else":
            body = end + 2 if tokens[end + 2].text != "if" else pairs[end + 3] + 1
            end = pairs[body] if tokens[body].text == "{" else end_of_statement(tokens, body, pairs)
        return end
    if token.text == "return" and tokens[index + 1].text != ";":
        return None
    if token.text not in ("*", "(", "++", "--", "return") and (not token.is_name() or token.text in NO_STATEMENTS):
        return None
    end = index
    while end < len(tokens) and tokens[end].text not in (";", "}", ")"):
        end = pairs[end] + 1 if tokens[end].text in "([{" else end + 1
    return end if end < len(tokens) and tokens[end].text == ";" and not declares(tokens, index, end) else None


def declares(tokens, first, end):
    """Whether the statement is a declaration: a type precedes the name."""
    for index in range(first, end + 1):
        if tokens[index].text in ("=", ";", "(", "{", "["):
            return index - 2 >= first and tokens[index - 1].is_name() and (
                tokens[index - 2].is_name() and tokens[index - 2].text != "return" or tokens[index - 2].text == ">" or
                tokens[index - 2].text in ("*", "&") and not tokens[index - 1].spaced)
    return False
