#!/usr/bin/python3 -B
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# accessibilitybus.py PROGRAM LISTS: compares what AT-SPI tells of each page and dialog with the same lists of names
# and roles as accessibletreetest, which asks Qt. Runs as screenreader.py says.

import difflib
import os
import sys

from screenreader import Atspi, Program, children, described, press, visible, wait_for

PROGRAM, LISTS = sys.argv[1:]
PAGES = ("users", "groups", "limits", "problems", "new-account")
WINDOW = "Ormel Users"


def write(path, text):
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


def compare(name, find):
    """Compares what is below the element that find() returns, as soon as it is the same."""
    with open(f"{LISTS}/{name}.txt", encoding="utf-8") as file:
        expected = file.read().splitlines()
    found = []

    def is_same():
        element = find()
        found[:] = described(element) if element else []
        return found == expected

    try:
        wait_for(is_same, name)
    except SystemExit:
        print("\n".join(difflib.unified_diff(expected, found, "expected", "found", lineterm="")))
        raise
    print(f"PASS: {name}, {len(found)} elements")


def current_page(program):
    """The page that is shown in the stack of pages."""
    stack = next(part for part in visible(program.window(WINDOW)) if part.get_role() == Atspi.Role.LAYERED_PANE)
    return next((page for page in children(stack) if page.get_state_set().contains(Atspi.StateType.VISIBLE)), None)


def dialog(program, title):
    return lambda: program.window(title)


if not os.path.exists("/etc/ormel-sandbox"):
    sys.exit("This test writes to /etc: run it with scripts/sandbox.")
write(
    "/etc/passwd",
    "root:x:0:0:root:/nonexistent:/bin/bash\nada:x:1000:50:Ada:/home/ada:/bin/sh\nbob:x:1001:50:Bob:/home/bob:/bin/sh\n",
)
write("/etc/group", "root:x:0:\normel-admin:x:27:ada\nstaff:x:50:\n")
write("/etc/security/limits.conf", "* soft core 0\n* both nproc some\n")

with Program(PROGRAM) as program:
    for number, page in enumerate(PAGES, 1):
        program.window(WINDOW)
        press(f"alt+{number}")
        compare(f"page-{page}", lambda: current_page(program))
    press("alt+1", "F1")
    compare("dialog-help", dialog(program, "Help"))
    press("Escape")
    program.window(WINDOW)
    press("alt+h", "a")
    compare("dialog-about", dialog(program, "About"))
    press("Escape")
    program.window(WINDOW)
    press("alt+2", "alt+b")
    program.window("Select Users")
    press("Tab", "Tab", "Down", "space", "Return")
    compare("dialog-commands", dialog(program, "Change the Members"))

for name, *command in (
    ("dialog-select-users", "pick-users"),
    ("dialog-select-groups", "pick-groups"),
    ("dialog-select-icon", "pick-icon", "--output", "/tmp/icon.png"),
):
    with Program(PROGRAM, *command) as program:
        compare(name, dialog(program, "Select"))
