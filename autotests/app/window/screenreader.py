# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# A program as a screen reader gets to know it, through AT-SPI, and the keyboard. Needs an X server and a session bus:
#
#   scripts/sandbox scripts/with-display autotests/app/window/withbus.sh SCRIPT

import os
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

SECONDS = 120

# Newer releases call it so.
BUTTON = getattr(Atspi.Role, "BUTTON", None) or Atspi.Role.PUSH_BUTTON
# What Qt calls the roles. Their names in AT-SPI differ between releases.
ROLES = {
    Atspi.Role.ALERT: "AlertMessage",
    BUTTON: "Button",
    Atspi.Role.CHECK_BOX: "CheckBox",
    Atspi.Role.COMBO_BOX: "ComboBox",
    Atspi.Role.DIALOG: "Dialog",
    Atspi.Role.IMAGE: "Graphic",
    Atspi.Role.LABEL: "StaticText",
    Atspi.Role.LIST: "List",
    Atspi.Role.PANEL: "Grouping",
    Atspi.Role.PASSWORD_TEXT: "EditableText",
    Atspi.Role.TABLE_COLUMN_HEADER: "ColumnHeader",
    Atspi.Role.TEXT: "EditableText",
    Atspi.Role.TREE: "Tree",
}
# As many as there are accounts.
ROWS = (Atspi.Role.LIST_ITEM, Atspi.Role.TABLE_CELL, Atspi.Role.TABLE_ROW, Atspi.Role.TREE_ITEM)


def wait_for(found, what):
    """Returns what found() returns, as soon as that is something. What changes meanwhile is looked at again."""
    end = time.monotonic() + SECONDS
    while time.monotonic() < end:
        try:
            result = found()
            if result:
                return result
        except GLib.Error:
            pass
        time.sleep(0.05)
    sys.exit(f"FAIL: {what} does not appear")


def press(*keys):
    subprocess.run(["xdotool", "key", "--delay", "60", *keys], check=True)


def enter(text):
    subprocess.run(["xdotool", "type", "--delay", "30", text], check=True)


def has(element, state):
    return element.get_state_set().contains(state)


def children(element):
    for number in range(element.get_child_count()):
        child = element.get_child_at_index(number)
        if child:
            yield child


def visible(element):
    """The element and all below that are visible, without rows."""
    if not has(element, Atspi.StateType.VISIBLE) or element.get_role() in ROWS:
        return
    yield element
    for child in children(element):
        yield from visible(child)


def described(element):
    """Names and roles of all that has a name, or should have one."""
    return [
        f"{ROLES.get(part.get_role(), part.get_role_name())} {part.get_name()}".replace("\n", " ")
        for part in visible(element)
        if part.get_name() or has(part, Atspi.StateType.FOCUSABLE)
    ]


class Program:
    """A program that runs as long as the object is used in a with statement."""

    def __init__(self, *command):
        environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.process = subprocess.Popen(command, env=environment, stderr=subprocess.DEVNULL)
        # A program that is asked before it can answer counts as one without windows from then on.
        search = os.path.join(os.path.dirname(__file__), "../findwindow.sh")
        subprocess.run([search, "--pid", str(self.process.pid)], stdout=subprocess.DEVNULL, check=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def windows(self):
        # Only an event loop would renew what is remembered.
        desktop = Atspi.get_desktop(0)
        desktop.set_cache_mask(Atspi.Cache.NONE)
        desktop.clear_cache()
        for application in children(desktop):
            if application.get_process_id() == self.process.pid:
                application.set_cache_mask(Atspi.Cache.NONE)
                application.clear_cache()
                yield from children(application)

    def window(self, title):
        """The window of that title, as soon as it has the keyboard."""

        def find():
            return next(
                (
                    window
                    for window in self.windows()
                    if window.get_name().startswith(title) and has(window, Atspi.StateType.ACTIVE)
                ),
                None,
            )

        return wait_for(find, f"the window '{title}'")

    def labels(self, title):
        """The texts in a window."""
        return [part.get_name() for part in visible(self.window(title)) if part.get_role() == Atspi.Role.LABEL]

    def rows(self, title, name):
        """The rows of the list that is called so, each a list of texts; hidden columns count."""

        def find():
            return next((part for part in visible(self.window(title)) if part.get_name() == name), None)

        parts = list(children(wait_for(find, f"the list '{name}'")))
        columns = sum(part.get_role() == Atspi.Role.TABLE_COLUMN_HEADER for part in parts)
        cells = [part.get_name() for part in parts[columns:]]
        return [cells[start : start + columns] for start in range(0, len(cells), columns)]
