#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# findwindow.sh OPTION...: prints the visible window that xdotool finds with these options, as soon as there is one.
#
# xdotool could wait itself, but fails when any window goes away while it searches.
for ((tries = 0; tries < 1200; ++tries)); do
    window=$(xdotool search --onlyvisible "$@" 2>/dev/null | head -n 1)
    if [ -n "$window" ]; then
        echo "$window"
        exit
    fi
    sleep 0.1
done
echo "There is no such window: $*" >&2
exit 1
