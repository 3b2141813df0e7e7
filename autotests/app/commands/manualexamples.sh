#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# manualexamples.sh PROGRAM MANUAL-PAGE: runs the examples of the manual page, in its order, and compares what
# they print. Needs a display.
set -euo pipefail

program=$1
page=$2
if [ ! -e /etc/ormel-sandbox ]; then
    echo "This test writes to /etc: run it with scripts/sandbox." >&2
    exit 1
fi
cat >/etc/passwd <<END
root:x:0:0:root:/root:/bin/bash
alice:x:1000:1000:Alice A.:/nonexistent:/bin/sh
bob:x:1001:29:Bob, the other:/nonexistent:/bin/sh
END
cat >/etc/group <<END
root:x:0:
audio:x:29:alice
alice:x:1000:
END
mkdir -p /etc/security
echo "alice hard nofile 4096" >/etc/security/limits.conf
directory=$(mktemp -d)
cd "$directory"
mkdir bin
ln -s "$program" bin/ormel-users
PATH=$directory/bin:$PATH

failures=0
number=0
# expects TEXT OUTPUT EXAMPLE
expects() {
    if [ "$1" = "$2" ]; then
        echo "PASS: $3"
    else
        echo "FAIL: $3: expected '$1', got '$2'"
        failures=$((failures + 1))
    fi
}

# answer: presses keys in the dialog of the last example.
answer() {
    local window
    window=$("$(dirname "$0")/../findwindow.sh" --name "^Select Users\$")
    xdotool windowactivate --sync "$window"
    xdotool key --delay 100 Tab Tab Home Return
}

while IFS= read -r example; do
    number=$((number + 1))
    case $number in
    1) expects $'alice\nbob' "$(bash -c "$example" 2>&1)" "$example" ;;
    2) expects 1 "$(bash -c "$example" | grep -c '^nofile .* 4096 .*alice /etc/security/limits.conf:1')" "$example" ;;
    3)
        bash -c "$example"
        expects $'name,fullName,uid\nalice,Alice A.,1000\nbob,Bob,1001' "$(<users.csv)" "$example"
        ;;
    4)
        expects "" "$(bash -c "$example")" "$example"
        sed -i 's/:1001:/:1000:/' /etc/passwd
        expects "User 'bob' has the same UID as user 'alice': 1000" "$(bash -c "$example")" "$example"
        ;;
    5)
        answer &
        expects "uid=1000(alice)" "$(bash -c "$example" 2>/dev/null | cut -d' ' -f1)" "$example"
        ;;
    *) expects "no such example" "$example" "$number" ;;
    esac
done < <(sed -n '/^\.EX/,/^\.EE/{/^\./d;p}' "$page" | sed 's/\\-/-/g; s/\\\[aq\]/'"'"'/g')
expects 5 "$number" "number of examples"
exit $((failures > 0))
