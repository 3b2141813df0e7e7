#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# Opens the dialogs of ormel-users, answers them with the keyboard and compares what is printed:
#
#   scripts/sandbox scripts/with-display autotests/app/commands/pickcommands.sh build/dev/bin/ormel-users
set -euo pipefail

program=$1
if [ ! -e /etc/ormel-sandbox ]; then
    echo "This test writes to /etc: run it with scripts/sandbox." >&2
    exit 1
fi
cat >/etc/passwd <<END
root:x:0:0:root:/root:/bin/bash
alice:x:1000:1000::/home/alice:/bin/sh
bob:x:1001:50::/home/bob:/bin/sh
carol:x:1002:1002::/home/carol:/bin/sh
END
cat >/etc/group <<END
root:x:0:
staff:x:50:alice
alice:x:1000:
video:x:44:
END
output=$(mktemp)
failures=0

# try EXPECTED TITLE "KEY..." ARGUMENT...: EXPECTED is the exit status and the names printed.
try() {
    local expected=$1 title=$2 keys=$3 window status=0
    shift 3
    "$program" "$@" >"$output" 2>/dev/null &
    local pid=$!
    window=$("$(dirname "$0")/../findwindow.sh" --name "^$title\$")
    xdotool windowactivate --sync "$window"
    # shellcheck disable=SC2086 # one word for each key
    xdotool key --delay 100 $keys
    wait "$pid" || status=$?
    local names
    mapfile -t names <"$output"
    local actual="$status${names[*]:+ ${names[*]}}"
    if [ "$actual" != "$expected" ]; then
        echo "FAIL: $*: expected '$expected', got '$actual'"
        failures=$((failures + 1))
    else
        echo "PASS: $*: $actual"
    fi
}

# Names are in ascending order. The tab key leads from the filter over the text to the rows.
try "0 alice bob" "Select Users" "Return" pick-users --group staff
try "1" "Select Users" "Escape" pick-users --group staff
try "0 alice bob carol" "Select Users" "Tab Tab End space Return" pick-users --group staff
try "1" "Select Users" "Return" pick-users
try "0 alice" "Select Users" "Tab Tab Home Return" pick-users --single
try "1" "Select Users" "Return" pick-users --single
try "0 alice staff" "Select Groups" "Return" pick-groups --user alice
try "1" "Select Groups" "Escape" pick-groups --user alice
try "0 alice staff video" "Select Groups" "Tab Tab End space Return" pick-groups --user alice
try "0 root" "Select Groups" "Tab r o o Tab Home Return" pick-groups --single

# Names are read as UTF-8, and nothing in them controls the terminal.
cat >>/etc/passwd <<END
jürg:x:1003:51::/home/jürg:/bin/sh
mallory$(printf '\u009b31m\u202e'):x:1004:51::/home/mallory:/bin/sh
END
echo "größe:x:51:" >>/etc/group
try "0 jürg mallory�31m�" "Select Users" "Return" pick-users --group größe
try "0 größe" "Select Groups" "Return" pick-groups --user jürg

# Without accounts there are no rows to pick.
: >/etc/passwd
: >/etc/group
try "1" "Select Users" "Tab Tab Home Return" pick-users --single
try "1" "Select Groups" "Tab Tab space Return" pick-groups

for unknown in "pick-users --group nobodies" "pick-groups --user nobody-else"; do
    status=0
    # shellcheck disable=SC2086 # a command and its arguments
    "$program" $unknown 2>"$output" || status=$?
    if [ "$status" -ne 1 ] || ! grep -q "There is no" "$output"; then
        echo "FAIL: $unknown: exit status $status, $(<"$output")"
        failures=$((failures + 1))
    fi
done
exit $((failures > 0))
