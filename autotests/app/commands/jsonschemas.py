#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# jsonschemas.py PROGRAM SOURCE-DIR: the JSON that the program prints matches the schemas in docs/, and they
# describe nothing else.

import copy
import json
import pathlib
import re
import subprocess
import sys

import jsonschema

PROGRAM = sys.argv[1]
SOURCES = pathlib.Path(sys.argv[2])

PASSWD = """root:x:0:0:root:/root:/bin/bash
alice:x:1000:1000:Alice A.,1,2,3:/nonexistent:/bin/sh
bob:x:1000:77::/nowhere:/bin/none
"""
GROUP = """root:x:0:
alice:x:1000:
staff:x:50:alice,ghost
# comment
"""
LIMITS = """# limits
alice soft nofile 1024
alice hard nofile 4096
@staff - nproc 10
alice soft core 1
alice soft core unlimited
bob - chroot /
ghost soft core 0
wrong line
"""

failures = 0


def fail(message):
    global failures
    failures += 1
    print("FAIL:", message)


def write(path, text):
    path = pathlib.Path(path)
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text, encoding="utf-8")


def output(*arguments):
    run = subprocess.run([PROGRAM, *arguments], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
    return json.loads(run.stdout)


def schema(name, definition=None):
    """The schema of a file, or one of its definitions."""
    whole = json.loads((SOURCES / "docs" / f"{name}.schema.json").read_text(encoding="utf-8"))
    jsonschema.Draft202012Validator.check_schema(whole)
    if definition:
        return {"$ref": f"#/$defs/{definition}", "$defs": whole["$defs"]}
    return whole


def is_valid(value, against):
    return jsonschema.Draft202012Validator(against).is_valid(value)


def broken(value):
    """Copies of a value in each of which one member is missing, or is something else."""
    if isinstance(value, dict):
        for key in value:
            less = copy.copy(value)
            del less[key]
            yield f"without {key}", less
            yield f"with another {key}", {**value, key: {"something": "else"}}
        yield "with more", {**value, "more": 1}
    elif isinstance(value, list) and value:
        for what, item in broken(value[0]):
            yield what, [item, *value[1:]]


# Members that only some objects have.
OPTIONAL = {"user", "group", "sessionFails", "exemptFrom"}


def check(what, value, against):
    errors = list(jsonschema.Draft202012Validator(against).iter_errors(value))
    for error in errors[:3]:
        fail(f"{what}: {error.json_path}: {error.message}")
    if not value:
        fail(f"{what}: there is nothing to compare")
    for change, other in broken(value):
        if change.removeprefix("without ") not in OPTIONAL and is_valid(other, against):
            fail(f"{what}: {change} it is taken as well")


def optional(against):
    """A schema for objects of which only some columns were asked for."""
    return {**against, "items": {**against["items"], "required": []}}


write("/etc/passwd", PASSWD)
write("/etc/group", GROUP)
write("/etc/security/limits.conf", LIMITS)
write("/etc/security/limits.d/old", "alice soft core 1\n")

check("users", output("users", "--json"), schema("users"))
check("groups", output("groups", "--json"), schema("groups"))
for command, columns in ("users", "uid,name"), ("groups", "members"):
    found = output(command, "--json", "--columns", columns)
    if not is_valid(found, optional(schema(command))) or set(found[0]) != set(columns.split(",")):
        fail(f"{command} --columns: {found[0]}")

problems = output("check", "--json")
check("check", problems, schema("check"))
check("problems", problems["problems"], schema("check")["properties"]["problems"])
check("unread files", problems["unreadFiles"], schema("check")["properties"]["unreadFiles"])
listed = schema("check")["properties"]["problems"]["items"]["properties"]["id"]["enum"]
table = (SOURCES / "app/core/problems/problemkind.cpp").read_text(encoding="utf-8")
kinds = re.findall(r'Severity::\w+,\s+"([a-z-]+)"', table)
if len(kinds) < 30 or sorted(kinds) != sorted(listed):
    fail(f"the kinds of problems are {sorted(kinds)}, but the schema has {sorted(listed)}")

check("lines", output("limits", "--json"), schema("limits", "lines"))
check("session of a user", output("limits", "--json", "--user", "alice"), schema("limits", "session"))
check("session of a group", output("limits", "--json", "--group", "staff"), schema("limits", "session"))
definitions = schema("limits")["$defs"]
limit = {**definitions["session"]["properties"]["limits"], "$defs": definitions}
check("limit", output("limits", "--json", "--user", "alice")["limits"], limit)
explanation = output("limits", "--json", "--user", "alice", "--explain", "core")
check("explanation", explanation, schema("limits", "explanation"))
check("rule", output("limits", "--json", "--rule", "/etc/security/limits.conf:2"), schema("limits", "rule"))
check("findings", output("limits", "--json", "--check"), schema("limits", "findings"))
for arguments in ([], ["--user", "bob"], ["--check"], ["--rule", "/etc/security/limits.conf:4"]):
    if not is_valid(output("limits", "--json", *arguments), schema("limits")):
        fail(f"limits {arguments} is not what the whole schema describes")

sys.exit(failures > 0)
