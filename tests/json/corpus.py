#!/usr/bin/env python3
"""Writes the corpus of JSON files beside this script; its files are committed, so this runs only to change them.

A name begins with the verdict, accept or reject. The verdict of files with "whole" after it is
valid only for the whole file; that of the others also for their contents as the value of a member of an object.
"""

import pathlib
import shutil

corpus = {}


def put(verdict, name, content, whole=False):
    path = verdict + ("-whole-" if whole else "-") + name + ".json"
    assert path not in corpus, path
    corpus[path] = content.encode() if isinstance(content, str) else content


def accept(name, content, **options):
    put("accept", name, content, **options)


def reject(name, content, **options):
    put("reject", name, content, **options)


# Literals and the top level.
for literal in ("true", "false", "null"):
    accept("literal-" + literal, literal)
    reject("literal-" + literal + "-cut", literal[:-1])
    reject("literal-" + literal + "-longer", literal + "e")
    reject("literal-" + literal + "-title", literal.title())
    reject("literal-" + literal + "-upper", literal.upper())
for name, word in {"nan": "NaN", "infinity": "Infinity", "minus-infinity": "-Infinity", "undefined": "undefined",
                   "nil": "nil", "yes": "yes", "bare-word": "word", "none": "None"}.items():
    reject("literal-" + name, word)
reject("empty", b"", whole=True)
reject("space-only", " ", whole=True)
reject("line-feeds-only", "\n\n\n", whole=True)
reject("nul-only", b"\0", whole=True)

# White space and byte order marks.
for name, blank in {"space": " ", "tab": "\t", "line-feed": "\n", "carriage-return": "\r", "all": " \t\r\n"}.items():
    accept("space-" + name + "-before", blank + "[]")
    accept("space-" + name + "-after", "[]" + blank)
    accept("space-" + name + "-inside", "{%s\"a\"%s:%s[%s1%s,%s2%s]%s}" % ((blank,) * 8))
for name, blank in {"form-feed": "\f", "vertical-tab": "\v", "no-break": "\u00a0", "en-quad": "\u2000",
                    "zero-width": "\u200b", "ideographic": "\u3000", "line-separator": "\u2028",
                    "next-line": "\u0085", "nul": "\0", "substitute": "\x1a", "backspace": "\b",
                    "file-separator": "\x1c"}.items():
    reject("space-" + name + "-before", blank + "[]")
    reject("space-" + name + "-after", "[]" + blank)
    reject("space-" + name + "-inside", "[1," + blank + "2]")
accept("mark-first", "\ufeff[]", whole=True)
accept("mark-then-space", "\ufeff [] ", whole=True)
reject("mark-twice", "\ufeff\ufeff[]", whole=True)
reject("mark-alone", "\ufeff", whole=True)
reject("mark-after-space", " \ufeff[]")
reject("mark-last", "[]\ufeff")
reject("mark-inside", "[\ufeff1]")
reject("mark-cut", b"\xef\xbb[]")
reject("mark-utf16-little", b"\xff\xfe[\0]\0", whole=True)
reject("mark-utf16-big", b"\xfe\xff\0[\0]", whole=True)
reject("utf16-little", "[1]".encode("utf-16-le"), whole=True)
reject("utf16-big", "[1]".encode("utf-16-be"), whole=True)
reject("utf32-little", "[1]".encode("utf-32-le"), whole=True)
reject("utf32-big", "[1]".encode("utf-32-be"), whole=True)

# Structure.
for name, content in {
    "array-empty": "[]", "array-one": "[1]", "array-of-all": "[null,true,\"x\",1,-1.5,[],{}]", "array-nested": "[[[]]]",
    "object-empty": "{}", "object-one": "{\"a\":1}", "object-nested": "{\"a\":{\"b\":{\"c\":[]}}}",
    "object-empty-name": "{\"\":0}", "object-twice-the-name": "{\"a\":1,\"a\":2}",
    "object-name-escaped": "{\"\\u0061\\/\\n\":1}", "object-name-not-ascii": "{\"\u00e9\":1,\"e\u0301\":2}",
    "object-many": "{" + ",".join("\"%d\":%d" % (i, i) for i in range(300)) + "}",
    "array-long": "[" + ",".join(["0"] * 3000) + "]",
}.items():
    accept(name, content)
for name, content in {
    "array-open": "[", "array-open-one": "[1", "array-open-comma": "[1,", "array-close": "]", "array-extra-close": "[]]",
    "array-trailing-comma": "[1,]", "array-two-trailing-commas": "[1,,]", "array-leading-comma": "[,1]",
    "array-double-comma": "[1,,2]", "array-only-comma": "[,]", "array-no-comma": "[1 2]", "array-no-comma-texts": "[\"a\"\"b\"]",
    "array-colon": "[1:2]", "array-semicolon": "[1;2]", "array-closed-by-brace": "[1}", "array-member": "[\"a\":1]",
    "array-in-parentheses": "(1)", "array-inner-open": "[[1]", "array-comma-after": "[1],",
    "object-open": "{", "object-open-name": "{\"a\"", "object-open-colon": "{\"a\":", "object-open-value": "{\"a\":1",
    "object-open-comma": "{\"a\":1,", "object-close": "}", "object-extra-close": "{}}", "object-trailing-comma": "{\"a\":1,}",
    "object-many-trailing-commas": "{\"id\":0,,,,,}", "object-leading-comma": "{,\"a\":1}", "object-only-comma": "{,}",
    "object-double-colon": "{\"a\"::1}", "object-no-colon": "{\"a\" 1}", "object-equals": "{\"a\"=1}",
    "object-no-value": "{\"a\":}", "object-no-value-then-more": "{\"a\":,\"b\":1}", "object-no-name": "{:1}",
    "object-value-only": "{1}", "object-text-only": "{\"a\"}", "object-bare-name": "{a:1}", "object-single-quotes": "{'a':1}",
    "object-number-name": "{1:1}", "object-true-name": "{true:1}", "object-null-name": "{null:1}",
    "object-array-name": "{[]:1}", "object-no-comma": "{\"a\":1 \"b\":2}", "object-semicolon": "{\"a\":1;\"b\":2}",
    "object-closed-by-bracket": "{\"a\":1]", "object-two-values": "{\"a\":1 2}", "object-comma-for-colon": "{\"a\",1}",
    "two-arrays": "[][]", "two-objects": "{}{}", "two-numbers": "1 2", "two-texts": "\"a\" \"b\"", "array-then-word": "[]x",
    "object-then-text": "{\"a\": true} \"x\"", "object-then-hash": "{\"a\":\"b\"}#", "object-then-comma": "{},",
    "comma-first": ",[]", "colon": ":", "comma": ",", "hash-comment": "[1] # one", "line-comment": "[1] // one",
    "block-comment": "[1,/* two */2]", "block-comment-first": "/**/[]", "comment-as-value": "{\"a\":/*c*/\"b\"}",
    "markup": "<a/>", "equals": "a=1", "backslash": "\\", "star": "*", "at": "@",
}.items():
    reject(name, content)

# Depth, in arrays and objects.
for depth in (2, 100, 511, 512):
    accept("depth-%d" % depth, "[" * depth + "]" * depth, whole=True)
    accept("depth-%d-objects" % depth, "{\"a\":" * (depth - 1) + "{}" + "}" * (depth - 1), whole=True)
accept("depth-512-with-value", "[" * 512 + "1" + "]" * 512, whole=True)
accept("depth-510-inside", "[" * 510 + "]" * 510)
for depth in (513, 514, 1024, 1025, 5000):
    reject("depth-%d" % depth, "[" * depth + "]" * depth)
reject("depth-513-objects", "{\"a\":" * 512 + "{}" + "}" * 512)
reject("depth-513-with-value", "[" * 513 + "1" + "]" * 513)
reject("depth-512-inside", "{\"a\":" + "[" * 512 + "]" * 512 + "}")
reject("depth-100000-open", "[" * 100000)
reject("depth-20000-objects-open", "{\"a\":" * 20000)
reject("depth-2-not-closed", "[[]")

# Numbers.
for name, number in {
    "zero": "0", "minus-zero": "-0", "one": "1", "minus-one": "-1", "long": "1234567890", "zero-point-zero": "0.0",
    "minus-zero-point-zero": "-0.0", "fraction": "38.5", "whole-fraction": "38.0", "exponent": "3.8e1", "exponent-upper": "38E0",
    "exponent-plus": "38e+0", "exponent-minus": "380e-1", "exponent-zeros": "38e000", "zero-exponent": "0e5",
    "underflow": "1e-400", "minus-underflow": "-1e-400", "largest-double": "1.7976931348623157e308", "smallest": "5e-324",
    "largest-u32": "4294967295", "above-u32": "4294967296", "largest-i64": "9223372036854775807",
    "smallest-i64": "-9223372036854775808", "largest-u64": "18446744073709551615", "beyond-u64-with-point": "18446744073709551616.0",
    "many-digits": "0." + "1" * 400, "long-point-zeros": "1." + "0" * 400,
}.items():
    accept("number-" + name, number)
for name, number in {
    "leading-zero": "01", "leading-zeros": "00", "minus-leading-zero": "-01", "three-zeros-one": "0001", "plus": "+1",
    "minus": "-", "minus-word": "-x", "double-minus": "--1", "point-first": ".5", "minus-point": "-.5", "point-last": "1.",
    "minus-point-last": "-1.", "point-exponent": "1.e5", "two-points": "1.2.3", "exponent-empty": "1e", "exponent-sign-only": "1e+",
    "exponent-minus-only": "1e-", "exponent-point": "1e1.5", "exponent-twice": "1e1e1", "exponent-first": "e1", "hex": "0x1f",
    "hex-float": "0x1p3", "octal": "0o7", "binary": "0b1", "underscore": "1_000", "comma": "1,5", "space": "1 5",
    "suffix": "1f", "suffix-long": "1L", "percent": "5%", "word": "1a", "minus-space": "- 1", "full-width": "\uff11",
    "arabic-indic": "\u0663", "fraction-one-half": "\u00bd", "overflow": "1e400", "minus-overflow": "-1e400",
    "overflow-just": "1.7976931348623159e308", "beyond-u64": "18446744073709551616", "beyond-i64": "-9223372036854775809",
    "hundred-digits": "1" * 100, "nul-after": "1\0",
}.items():
    reject("number-" + name, number)

# Texts.
for name, text in {
    "empty": "", "ascii": "Say hello", "delete": "a\x7fb", "two-bytes": "\u00e9", "three-bytes": "\u4e2d\uffff", "four-bytes": "\U0001f600\U0010ffff",
    "decomposed": "e\u0301", "line-separator": "a\u2028b\u2029", "byte-order-mark": "\ufeffx", "next-line": "\u0085", "no-break": "\u00a0",
    "private": "\ue000\U000f0000", "not-a-character": "\ufffe\U0001ffff", "slash": "a/b", "single-quote": "it's",
    "long": "x" * 5000, "escape-quote": "\\\"", "escape-backslash": "\\\\", "escape-slash": "\\/", "escape-control": "\\b\\f\\n\\r\\t",
    "escape-nul": "\\u0000", "escape-lower": "\\u00e9\\u2265", "escape-upper": "\\u00E9\\uFFFF", "escape-pair": "\\uD834\\uDD1E",
    "escape-pair-lower": "\\ud834\\udd1e", "escape-last-pair": "\\uDBFF\\uDFFF", "escape-before-surrogates": "\\uD7FF\\uE000",
    "escape-backslash-u": "\\\\u00e9", "escape-many": "\\u0041" * 500, "escape-noncharacter": "\\uFFFE", "brackets": "[{]}", "comment": "/* x */ // y",
}.items():
    accept("text-" + name, "\"" + text + "\"")
for code in range(0x20):
    reject("text-control-%02x" % code, b"\"a" + bytes([code]) + b"b\"")
for name, text in {
    "escape-a": "\\a", "escape-e": "\\e", "escape-v": "\\v", "escape-x": "\\x15", "escape-zero": "\\0", "escape-upper-n": "\\N", "escape-upper-u": "\\U0041",
    "escape-single-quote": "\\'", "escape-space": "\\ ", "escape-line-feed": "\\\n", "escape-not-ascii": "\\\u00e9", "escape-u-empty": "\\u",
    "escape-u-one": "\\u1", "escape-u-two": "\\u12", "escape-u-three": "\\u123", "escape-u-not-hex": "\\u12g4", "escape-u-sign": "\\u+123",
    "escape-u-space": "\\u 123", "escape-u-braces": "\\u{e9}", "surrogate-high": "\\uD800", "surrogate-high-then-text": "\\uD834x",
    "surrogate-low": "\\uDC00", "surrogate-high-twice": "\\uD834\\uD834", "surrogate-reversed": "\\uDD1E\\uD834", "surrogate-high-then-letter": "\\uD800\\u0041",
    "surrogate-high-then-escape": "\\uD834\\n", "surrogate-apart": "\\uD834x\\uDD1E", "surrogate-low-last": "x\\uDFFF", "surrogate-pair-cut": "\\uD834\\uDD1",
}.items():
    reject("text-" + name, "\"" + text + "\"")
for name, text in {"open": "\"a", "quote-alone": "\"", "escaped-quote-last": "\"a\\\"", "backslash-last": "\"a\\", "single-quotes": "'a'", "backquotes": "`a`",
                   "curly-quotes": "\u201ca\u201d", "three-quotes": "\"\"\"", "quote-inside": "\"a\"b\"", "not-opened": "a\""}.items():
    reject("text-" + name, text)
for name, text in {
    "lone-continuation": b"\x80", "two-continuations": b"\xbf\x80", "cut-two": b"\xc3", "cut-three": b"\xe2\x82", "cut-four": b"\xf0\x9f\x98",
    "overlong-slash": b"\xc0\xaf", "overlong-nul": b"\xc0\x80", "overlong-three": b"\xe0\x80\xaf", "overlong-four": b"\xf0\x80\x80\xaf",
    "surrogate-high": b"\xed\xa0\x80", "surrogate-low": b"\xed\xb0\x80", "surrogate-pair": b"\xed\xa0\xbd\xed\xb8\x80", "beyond-unicode": b"\xf4\x90\x80\x80",
    "five-bytes": b"\xf8\x88\x80\x80\x80", "six-bytes": b"\xfc\x84\x80\x80\x80\x80", "fe": b"\xfe", "ff": b"\xff", "latin-1": b"caf\xe9",
    "wrong-second": b"\xc3\x28", "wrong-third": b"\xe2\x82\x28", "windows": b"\x93quoted\x94", "continuation-after-ascii": b"a\x80b",
}.items():
    reject("utf8-" + name, b"\"" + text + b"\"")
    reject("utf8-" + name + "-in-name", b"{\"" + text + b"\":1}")
reject("utf8-outside-texts", b"[1,\xff]")
reject("utf8-after-the-end", b"[] \xc3")

# A file of each kind as people and programs write it, and one text that is cut after each of its bytes but the last.
for name, content in {
    "typeface": "{\n  \"name\" : \"system\"\n}", "updates": "{\"automatic\": false, \"manifest_url\": \"https:\\/\\/example.com\\/m.json\"}",
    "registry": "[{\"cwd\":\"\\/a\",\"id\":\"1\",\"n\":1.5e3},{\"cwd\":\"~\\/b\"}]", "patterns": "{\"\\/a\":[\"x\\/*\",\"y\"],\"\\/b\":[]}",
    "shortcuts": "{\"focusLast\":{\"keyCode\":38,\"modifiers\":768}}",
}.items():
    accept("record-" + name, content)
record = "{\"a\" : [true, -1.5e1, \"\\u00e9\"]}"
for length in range(1, len(record)):
    reject("record-cut-at-%02d" % length, record[:length])

directory = pathlib.Path(__file__).parent / "corpus"
shutil.rmtree(directory, ignore_errors=True)
directory.mkdir()
for path, content in corpus.items():
    (directory / path).write_bytes(content)
print(len(corpus), "files")
