#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# publicheaders.sh INCLUDE-DIR GENERATED-DIR [COMPILER-FLAG]...: each public header, by its own name and
# by that of its class, can be included first and without anything else, twice, and warns of nothing.
set -euo pipefail

include=$1 generated=$2
shift 2
read -ra qt < <(pkg-config --cflags Qt5Widgets | sed 's/-I/-isystem /g')

headers=0
for header in "$include"/*.h; do
    class=$(sed -n 's/^ \* @class .*<\(.*\)>$/\1/p' "$header")
    for name in "$(basename "$header")" "$class"; do
        printf '#include <%s>\n' "$name" "$name" "$class" | c++ -x c++ -std=c++17 -fPIC -fsyntax-only \
            -Wall -Wextra -pedantic -Werror -I"$include" -I"$generated" "${qt[@]}" "$@" -
        headers=$((headers + 1))
    done
done
[ "$headers" -gt 0 ]
