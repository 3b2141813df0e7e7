# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# lintbatches.py COMMANDS LINT: joins the sources for scripts/lint, so that a check reads the headers of Qt, which
# take most of its time, only once for many files. Writes
#
#   LINT/batches/NUMBER.cpp         up to 16 files in one; each program keeps a main() of its own
#   LINT/batches/NUMBER.files       their names, each ended by a null character
#   LINT/compile_commands.json      the commands of COMMANDS and of the batches, without precompiled headers:
#                                   clang cannot read those of GCC
import collections
import json
import pathlib
import re
import subprocess
import sys

include = re.compile(r'^#include (?:<.*>|".*\.h")$', re.M)
# Tests and fuzz targets have names in common, so each is a namespace. Functions of libraries must not be in one.
is_program = re.compile(r'\.moc"|^#include "fuzzing\.h"$', re.M)
global_names = re.compile(r'\bextern "C"|\bQ_DECL_EXPORT\b|^Q_DECLARE_METATYPE|^\w[\w ]* Q[A-Z]\w+::\w+\(', re.M)
# What a line that is not indented declares: the last word before its first bracket, "=" or ";".
declared_name = re.compile(r"^(?!using|namespace|template|[A-Z_]+\()(?=[\w}])[^=(\[{;\n]*?\b((?:\w+::)*\w+)\s*(?:[=(\[{;]|$)", re.M)
alias_name = re.compile(r"^using (\w+) =", re.M)
macro = re.compile(r" -D([^\s=]+)(\S*)")
target_functions = "namespace Target { void prepare(); void run(const QByteArray &input); }"


class File:
    def __init__(self, name, command):
        self.name, self.command = name, command
        self.text = pathlib.Path(name).read_text()
        self.macros = dict(macro.findall(command["command"]))
        self.is_namespace = bool(is_program.search(self.text) and not global_names.search(self.text))
        self.names = {*declared_name.findall(self.text), *alias_name.findall(self.text)}

    def fits(self, other):
        same_macros = all(other.macros.get(name, value) == value for name, value in self.macros.items())
        return same_macros and (self.is_namespace or self.names.isdisjoint(other.names))

    def body(self, number):
        text = include.sub("", self.text)
        if self.is_namespace:
            again = target_functions if "Target::" in text else ""
            text = f'namespace file_{number} {{ {again}\n#line 1 "{self.name}"\n{text} }}'
        return f'#undef main\n#define main main_{number}\n#line 1 "{self.name}"\n{text}\n'


def batches(commands):
    parts = ("app", "autotests", "benchmarks", "fuzz", "testsupport")
    found = collections.defaultdict(list)
    for name in subprocess.check_output(["git", "ls-files", "*.cpp"], text=True).splitlines():
        path = pathlib.Path(name)
        file = File(name, commands[str(path.resolve())])
        same_kind = found[path.parts[0] if path.parts[0] in parts else "library", file.is_namespace]
        batch = next((batch for batch in same_kind if len(batch) < 16 and all(map(file.fits, batch))), None)
        if batch is None:
            same_kind.append(batch := [])
        batch.append(file)
    return [batch for same_kind in found.values() for batch in same_kind]


def write(batch, path):
    """Writes the files of a batch as one, and returns the command that compiles it."""
    headers = dict.fromkeys(f"{line}\n" for file in batch for line in include.findall(file.text))
    path.write_text("".join(headers) + "".join(file.body(number) for number, file in enumerate(batch)))
    path.with_suffix(".files").write_text("".join(f"{file.name}\0" for file in batch))
    flags = dict.fromkeys(f" -iquote {pathlib.Path(file.name).parent.resolve()}" for file in batch)
    for file in batch:
        flags.update(dict.fromkeys(re.findall(r" -(?:D|I|isystem )\S+", file.command["command"])))
    first = re.sub(r" -o \S+ -c \S+$", "", batch[0].command["command"])
    command = f"{first} -Wno-return-type{''.join(flags)} -c {path}" # main_1() lacks a return
    return {**batch[0].command, "command": command, "file": str(path)}


commands = {}
for entry in json.loads(pathlib.Path(sys.argv[1]).read_text()):
    entry["command"] = re.sub(r" -Winvalid-pch -include \S+", "", entry["command"])
    commands.setdefault(entry["file"], entry)
lint = pathlib.Path(sys.argv[2]).resolve()
joined = [write(batch, lint / f"batches/{number}.cpp") for number, batch in enumerate(batches(commands))]
(lint / "compile_commands.json").write_text(json.dumps([*commands.values(), *joined]))
