"""Prints a source after preprocessing, with its comments. preprocess.py COMPILE_COMMANDS SOURCE"""

import json
import shlex
import subprocess
import sys

database, source = sys.argv[1:]
with open(database) as file:
    command = next(entry for entry in json.load(file) if entry["file"] == source)
words = shlex.split(command["command"])
output = words.index("-o")
del words[output:output + 2]
sys.exit(subprocess.run([*words, "-E", "-C"], cwd=command["directory"]).returncode)
