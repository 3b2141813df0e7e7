#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# Compares the table of rooms in docs/architecture.md with what the sources include: each arrow of the table
# has to exist in the code, and the other way round. Rooms without widgets include none of Qt.
#
#   autotests/package/rooms.py SOURCE-DIRECTORY

import pathlib
import re
import subprocess
import sys

WITHOUT_WIDGETS = ("app/core", "app/terminal")

source = pathlib.Path(sys.argv[1])
row = re.compile(r"^\| `([a-z/]+)/` +\| ([^|]*)\|")
table = {}
for line in (source / "docs/architecture.md").read_text().splitlines():
    match = row.match(line)
    if match:
        table[match[1]] = set(re.findall(r"`([a-z/]+)/`", match[2]))
if not table:
    sys.exit("docs/architecture.md has no table of rooms")

# The most specific room comes first: app/core before app.
by_depth = sorted(table, key=len, reverse=True)


def room_of(path):
    name = path.relative_to(source).as_posix()
    return next((room for room in by_depth if name.startswith(room + "/")), None)


files = [
    path
    for room in table
    for pattern in ("*.cpp", "*.h")
    for path in sorted((source / room).rglob(pattern))
]
headers = {}
for path in files:
    if path.suffix == ".h":
        headers.setdefault(path.name, set()).add(room_of(path))
for path in (source / "include").glob("*.h"):
    for name in re.findall(r"^class \w+_EXPORT (\w+)", path.read_text(), re.MULTILINE):
        headers[name] = {"include"}

widgets = subprocess.run(
    ["pkg-config", "--variable=includedir", "Qt5Widgets"], capture_output=True, text=True, check=True
).stdout.strip()
of_widgets = {path.name for path in pathlib.Path(widgets, "QtWidgets").iterdir()}
if "QWidget" not in of_widgets:
    sys.exit(f"no headers of Qt Widgets below {widgets}")

faults = []
arrows = {room: set() for room in table}
for path in files:
    room = room_of(path)
    for name in re.findall(r'^#include ["<]([\w./]+)[">]', path.read_text(), re.MULTILINE):
        base = name.rsplit("/", 1)[-1]
        if base in of_widgets and room in WITHOUT_WIDGETS:
            faults.append(f"{path.relative_to(source)} includes {name}, a widget")
        rooms = headers.get(base, set())
        if len(rooms) == 1 and room not in rooms:
            arrows[room] |= rooms

for room, uses in table.items():
    faults += [f"{room}/ does not use {other}/ as the table says" for other in sorted(uses - arrows[room])]
    faults += [f"{room}/ uses {other}/, which the table does not say" for other in sorted(arrows[room] - uses)]

print("\n".join(faults))
sys.exit(bool(faults))
