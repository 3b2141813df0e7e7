#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# Walks through the pages of the window with the keyboard alone and copies what each one shows:
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

# activates EXPECTED: the title of the window that becomes the active one.
activates() {
    local expected=$1 actual tries
    for ((tries = 0; tries < 100; ++tries)); do
        actual=$(xdotool getactivewindow getwindowname 2>/dev/null || true)
        [ "$actual" != "$expected" ] || break
        sleep 0.1
    done
    check "$expected" "$actual"
}

# has_focus: the list has the focus, so one of its rows can be copied. It gets the focus when everything was read.
has_focus() {
    local tries
    for ((tries = 0; tries < 100; ++tries)); do
        key ctrl+c
        [ -z "$(timeout 5 xclip -selection clipboard -out 2>/dev/null || true)" ] || return 0
        sleep 0.1
    done
    check "a row" ""
}

# copies EXPECTED: what the focused field copies to the clipboard.
copies() {
    local expected=$1 actual tries
    for ((tries = 0; tries < 100; ++tries)); do
        key ctrl+a ctrl+c
        actual=$(timeout 5 xclip -selection clipboard -out || true)
        [ "$actual" != "$expected" ] || break
        sleep 0.1
    done
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
window=$("$(dirname "$0")/../findwindow.sh" --name "^Ormel Users\$")
xdotool windowactivate --sync "$window"
has_focus

# Users: the second name, whose first field is the full name.
key Down Tab
copies "Bob B."
key shift+Tab Up Tab Tab
copies "7"

# The search leaves one user, without a full name; the first field is the home directory.
key ctrl+f c a r Tab Tab Tab
copies "/home/carol"

# Reload: the user is there with another home.
sed -i 's,/home/carol,/home/caroline,' /etc/passwd
key F5
copies "/home/caroline"

# Groups: the last one.
key alt+2 ctrl+f v i d Tab Tab Tab
copies "44"

# Limits: the second line.
key alt+3 alt+l Down
copies "/etc/security/limits.conf:2"

# The new account, whose first field is the user name, and its dialogs.
key alt+5
key alt+a d a v e
copies "dave"
key alt+i
activates "Select Image — Ormel Users"
key Escape
activates "Select User Icon — Ormel Users"
key Escape
activates "Ormel Users"
key alt+g
activates "Select Groups — Ormel Users"
key Escape
activates "Ormel Users"

# The commands that change the members of a group.
key alt+2 alt+b
activates "Select Users — Ormel Users"
key Return
activates "Change the Members of video — Ormel Users"
key Escape
activates "Ormel Users"

# Help on the page.
key F1
activates "Help — Ormel Users"
key Escape
activates "Ormel Users"

# About and back, by the menu.
key alt+h a
activates "About Ormel Users"
key Escape
activates "Ormel Users"

# The page and the filters are remembered.
key alt+3 ctrl+q
status=0
wait "$pid" || status=$?
check 0 "$status"
check "page=2" "$(grep page= "$HOME/.config/ormel-users/window.ini")"
exit $((failures > 0))
