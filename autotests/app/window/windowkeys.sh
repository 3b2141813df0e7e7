#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# Walks through the pages of the window with the keyboard alone, copying what each shows:
#
#   scripts/sandbox scripts/with-display autotests/app/window/windowkeys.sh build/dev/bin/ormel-users
set -euo pipefail

program=$1
if [ ! -e /etc/ormel-sandbox ]; then
    echo "This test writes to /etc: run it with scripts/sandbox." >&2
    exit 1
fi
cat >/etc/passwd <<END
root:x:0:0:root:/root:/bin/bash
alice:x:1000:1000:Alice A.,7:/home/alice:/bin/sh
bob:x:1001:50:Bob B.:/home/bob:/bin/sh
carol:x:1002:1002::/home/carol:/bin/sh
END
cat >/etc/group <<END
root:x:0:
staff:x:50:alice
alice:x:1000:
video:x:44:
END
rm -rf /etc/security/limits.d
cat >/etc/security/limits.conf <<END
* soft core 0
@staff hard nproc 20
alice	hard	nproc	10
END
failures=0

key() {
    xdotool key --delay 60 "$@"
}

# The title of the active window.
title() {
    sleep 0.3
    xdotool getactivewindow getwindowname
}

# copies EXPECTED: what the field that has the focus gives to the clipboard.
copies() {
    local expected=$1 actual
    key ctrl+a ctrl+c
    sleep 0.2
    actual=$(timeout 5 xclip -selection clipboard -out || true)
    check "$expected" "$actual"
}

check() {
    if [ "$1" = "$2" ]; then
        echo "PASS: $1"
    else
        echo "FAIL: expected '$1', got '$2'"
        failures=$((failures + 1))
    fi
}

"$program" 2>/dev/null &
pid=$!
window=$(timeout 20 xdotool search --sync --onlyvisible --name "^Ormel Users\$")
xdotool windowactivate --sync "$window"
# The list has the focus once everything was read.
sleep 1

# Users: the second name, whose first field is the full name.
key Down Tab
copies "Bob B."
key shift+Tab Up Tab Tab
copies "7"

# The name filter leaves one user, without a full name; the sixth field is the home directory.
key ctrl+f c a r Tab Tab
copies "–"
key Tab Tab Tab Tab Tab
copies "/home/carol"

# Reload: the user is there with another home.
sed -i 's,/home/carol,/home/caroline,' /etc/passwd
key F5
sleep 1
copies "/home/caroline"

# Groups: the last one.
key alt+2 ctrl+f v i d Tab Tab
copies "44"

# Limits: the second rule, and the file of the line that is no rule.
key alt+3 alt+r Down
copies "@staff"
key alt+l
copies "/etc/security/limits.conf"

# The new account, whose first field is the user name, and its two dialogs.
key alt+4
key alt+a d a v e
copies "dave"
key alt+i
check "Select User Icon — Ormel Users" "$(title)"
key Escape
check "Ormel Users" "$(title)"
key alt+g
check "Select Groups — Ormel Users" "$(title)"
key Escape
check "Ormel Users" "$(title)"

# Choose: the members of a group, as they are.
key alt+5 alt+o s t a f f alt+m
check "Select Users — Ormel Users" "$(title)"
key Return
check "Ormel Users" "$(title)"
key alt+s
copies "2 users: alice, bob"

# About and back, by the menu.
key alt+h Return
check "About Ormel Users" "$(title)"
key Escape
check "Ormel Users" "$(title)"

# The page and the filters are remembered.
key alt+3 ctrl+q
status=0
wait "$pid" || status=$?
check 0 "$status"
check "page=2" "$(grep page= "$HOME/.config/ormel-users/window.ini")"
exit $((failures > 0))
