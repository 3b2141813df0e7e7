#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# sandbox.sh SANDBOX: the sandbox hides the settings of the caller and the files of the machine, and a killed
# sandbox leaves nothing behind. This script does not run in a sandbox itself.
set -euo pipefail

sandbox=$1
work=$(mktemp -d -p "$PWD")
trap 'rm -rf "$work"' EXIT

fail() {
    echo "$*"
    exit 1
}

plain=$("$sandbox" env | sort)
caller=(QT_FONT_DPI=120 LC_ALL=de_DE.UTF-8 LANGUAGE=de TZ=Asia/Tokyo KDE_FULL_SESSION=true XDG_DATA_DIRS=/nowhere)
[ "$(env "${caller[@]}" "$sandbox" env 2>/dev/null | sort)" = "$plain" ] || fail "The caller's variables are seen"
# shellcheck disable=SC2016 # expanded by the inner shell
asan=$(ASAN_OPTIONS=a=1 "$sandbox" bash -c 'echo "$ASAN_OPTIONS"')
[ "$asan" = a=1 ] || fail "The options of the sanitizers are not seen"

# shellcheck disable=SC2016 # expanded by the inner shell
"$sandbox" bash -euc '
    [ ! -e /etc/shadow ]
    [ ! -e /etc/gshadow ]
    cmp /etc/machine-id /var/lib/dbus/machine-id
    [ "$(date +%z)" = +0000 ]
    [ "$(fc-list : family | sort -u)" = "$(printf "%s\n" "DejaVu Sans" "DejaVu Sans Mono")" ]
    ls /usr/share/icons | cmp - <(printf "%s\n" breeze breeze-dark hicolor)
    for folder in /etc /tmp /usr/share/kiv /var/lib/extrausers ~; do
        touch "$folder/written"
    done
    if touch /usr/written 2>/dev/null; then
        exit 1
    fi
' || fail "It does not see the machine that it should"
if [ -e /etc/written ] || [ -e /usr/share/kiv/written ]; then
    fail "It writes to the machine"
fi

# Killed in the middle, once it says that it has come that far.
for signal in HUP TERM KILL; do
    mkfifo "$work/ready"
    mkdir "$work/temporary"
    # shellcheck disable=SC2016 # expanded by the inner shell
    TMPDIR=$work/temporary "$sandbox" bash -c 'echo >"$0"; exec sleep 600' "$work/ready" &
    read -r <"$work/ready"
    kill -s "$signal" $!
    wait $! || true
    left=$(ls -A "$work/temporary")
    rm -r "$work/ready" "$work/temporary"
    [ -z "$left" ] || fail "SIG$signal leaves $left"
done
