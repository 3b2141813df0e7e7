#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# scripts.sh SOURCE-DIR: with an unknown argument, each script prints its usage and ends with status 2 before
# it does anything.
set -euo pipefail
cd "$1"

failed=0
for script in scripts/* .ci/run; do
    if [ ! -f "$script" ] || [ ! -x "$script" ]; then
        continue
    fi
    status=0
    output=$(timeout 60 "$script" --no-such-argument 2>&1 >/dev/null) || status=$?
    if [ "$status" -ne 2 ] || [[ $output != "usage: $script"* ]]; then
        printf '%s: exit status %d\n%s\n' "$script" "$status" "$output"
        failed=1
    fi
done
exit "$failed"
