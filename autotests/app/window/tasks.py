#!/usr/bin/python3 -B
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# tasks.py PROGRAM ACCOUNTS [PICTURES]: does the tasks of docs/tasks.md with the keyboard alone, on the accounts that
# the script ACCOUNTS writes, and takes a picture of each. Commands are run and files are read. Runs as
# screenreader.py says.

import csv
import os
import struct
import subprocess
import sys
import time

from screenreader import Program, enter, press, wait_for

PROGRAM, ACCOUNTS, *PICTURES = sys.argv[1:]
WINDOW = "Ormel Users"
HOME = os.environ["HOME"]


def check(what, found, expected):
    if found != expected:
        sys.exit(f"FAIL: {what}: expected {expected!r}, got {found!r}")
    print(f"PASS: {what}")


def picture(name):
    if PICTURES:
        time.sleep(1)  # for the cursor to blink and the picture of the user to come
        subprocess.run(["scrot", "--focused", "--overwrite", f"{PICTURES[0]}/{name}.png"], check=True)


def search(page, text):
    press(f"alt+{page}", "ctrl+f", "ctrl+a", "BackSpace")
    enter(text)


def shows(what, text, title=WINDOW):
    wait_for(lambda: text in program.labels(title), f"'{text}'")
    print(f"PASS: {what}: {text}")


def clipboard():
    return subprocess.run(
        ["timeout", "10", "xclip", "-selection", "clipboard", "-out"], stdout=subprocess.PIPE, text=True, check=False
    ).stdout


def copied(start):
    """The commands that were copied, which begin with the word."""
    press("alt+y")
    return wait_for(lambda: clipboard() if clipboard().startswith(start) else None, f"a copy of '{start}'")


def run(commands):
    """Runs commands as root, or as root in a name space of the own user."""
    as_root = [] if os.geteuid() == 0 else ["unshare", "--map-root-user"]
    subprocess.run([*as_root, "sh", "-ec", commands], check=True)


def output(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True).stdout


def find_person():
    search(1, "okonkwo")
    shows("the person", "Tamsin Okonkwo-Reyes")
    shows("the room", "Room 22")
    picture("find-a-person")


def members_of_sudo():
    search(2, "sudo")
    shows("the group", "3 members")
    members = [row[:3] for row in program.rows(WINDOW, "Members")]
    check("the members", members, [["amelia", "Yes", "No"], ["esther", "Yes", "No"], ["hamza", "No", "Yes"]])
    picture("members-of-a-group")


def why_system():
    search(1, "collector")
    shows("the reason", "System account: the UID is below 1000")
    picture("system-account")


def shared_uid():
    search(4, "same uid")
    shows("the two users", "User 'stefan' has the same UID as user 'rosa': 1017")
    picture("shared-uid")


def add_to_groups():
    search(1, "ulrik")
    shows("the user", "Ulrik Sandstrom")
    press("alt+g")
    program.window("Select Groups")
    press("Tab")  # from the kinds of groups to the filter
    for group in ("developers", "scanner"):
        press("ctrl+a")
        enter(group)
        press("Tab", "Down", "space")
        if group == "scanner":
            picture("select-groups")
        press("shift+Tab")
    press("Return")
    program.window("Change the Groups")
    picture("add-to-groups")
    commands = copied("usermod")
    check("the commands", commands, "usermod --append --groups developers,scanner ulrik\n")
    press("Escape")
    run(commands)
    check("the groups", output("id", "-nG", "ulrik").split(), ["ulrik", "developers", "scanner"])
    shows("the window", "ulrik, developers, scanner")


def open_files():
    search(1, "priya")
    shows("the user", "Priya Raghunathan")
    press("alt+l", "Down")
    shows(
        "the lines",
        "/etc/security/limits.conf:2  * soft nofile 1024\n"
        "    a domain of higher rank decides: /etc/security/limits.conf:3\n"
        "/etc/security/limits.conf:3  @developers - nofile 65536\n"
        "    soft: a domain of higher rank decides: /etc/security/limits.d/50-accounting.conf:2\n"
        "    hard: decides\n"
        "/etc/security/limits.d/50-accounting.conf:2  priya soft nofile 16384\n"
        "    decides",
    )
    rows = program.rows(WINDOW, "Limits in a session")
    check("the limit", [row[:3] for row in rows if row[0] == "nofile"], [["nofile", "16384", "65536"]])
    picture("limit-of-open-files")


def taken_name():
    press("alt+5", "alt+a")
    enter("stefan")
    shows("the note", "There is already a user of this name.")
    picture("taken-name")
    press("ctrl+a")
    enter("stefano")
    press("alt+m")
    enter("Stefano Bianchi")
    commands = copied("useradd")
    check("the commands", commands, "useradd --create-home --user-group --comment 'Stefano Bianchi' stefano\n")
    run(commands)
    entry = output("getent", "passwd", "stefano").strip().split(":")
    check("the account", entry[4], "Stefano Bianchi")


def export_ordinary_users():
    path = f"{HOME}/ordinary.csv"
    press("alt+1", "ctrl+f", "ctrl+a", "BackSpace", "Tab", "Down")
    shows("the count", "28 of 40 users")
    picture("export")
    press("alt+f", "e")
    program.window("Export the List")
    press("ctrl+a")
    enter(path)
    press("Return")
    wait_for(lambda: os.path.exists(path), path)
    with open(path, encoding="utf-8", newline="") as file:
        rows = list(csv.reader(file))
    check("the titles", rows[0], ["Login", "Full name", "UID", "Kind"])
    with open("/etc/passwd", encoding="utf-8") as file:
        users = [line.rstrip("\n").split(":") for line in file]
    expected = [
        [user[0], user[4].split(",")[0], user[2], "Ordinary user"]
        for user in sorted(users)
        if user[2].isdigit() and int(user[2]) >= 1000 and user[0] != "nobody"
    ]
    check("the users", rows[1:], expected)
    press("alt+1", "ctrl+f", "Tab", "Up")


def without_password():
    search(4, "password is empty")
    wait_for(lambda: any(label.startswith("2 of ") for label in program.labels(WINDOW)), "two problems")
    accounts = [row[2] for row in program.rows(WINDOW, "Problems")]
    check("the accounts", accounts, ["yusuf", "kiosk"])
    picture("without-a-password")


def cut_picture():
    path = f"{HOME}/greta.png"
    search(1, "greta")
    shows("the user", "Greta Lindqvist")
    press("alt+p")
    program.window("Select Image")
    enter(f"{HOME}/Pictures/office-party.png")
    press("Return")
    program.window("Select User Icon")
    picture("cut-a-picture")
    press("Return")
    program.window("Save Picture")
    press("ctrl+a")
    enter(path)
    press("Return")
    wait_for(lambda: os.path.exists(path), path)
    with open(path, "rb") as file:
        head = file.read(24)
    check("the picture", (head[1:4], struct.unpack(">II", head[16:])), (b"PNG", (400, 400)))


if not os.path.exists("/etc/ormel-sandbox"):
    sys.exit("This test writes to /etc: run it with scripts/sandbox.")
subprocess.run([ACCOUNTS], check=True)
os.makedirs("/etc/default", exist_ok=True)
os.makedirs("/tmp/homes", exist_ok=True)
with open("/etc/default/useradd", "w", encoding="utf-8") as file:
    file.write("HOME=/tmp/homes\n")
with Program(PROGRAM) as program:
    program.window(WINDOW)
    shows("the window", "39 users")
    for task in (
        find_person,
        members_of_sudo,
        why_system,
        shared_uid,
        add_to_groups,
        open_files,
        taken_name,
        export_ordinary_users,
        without_password,
        cut_picture,
    ):
        print(f"{task.__name__.replace('_', ' ')}:", flush=True)
        task()
