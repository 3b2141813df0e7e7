#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# publicheaders.sh INCLUDE-DIR GENERATED-DIR: each public header, by the name of its class and by its own, can
# be included first and without anything else, twice, in a strict program; and all together in any other.
# Nothing is warned of.
set -euo pipefail

include=$1 generated=$2
read -ra qt < <(pkg-config --cflags Qt5Widgets | sed 's/-I/-isystem /g')

compile() {
    c++ -x c++ -std=c++17 -fPIC -fsyntax-only -Wall -Wextra -pedantic -Werror \
        -I"$include" -I"$generated" "${qt[@]}" "$@" -
}

all=
for header in "$include"/*.h; do
    class=$(sed -n 's/^ \* @class .*<\(.*\)>$/\1/p' "$header")
    source=$(printf '#include <%s>\n' "$class" "${header##*/}" "$class")
    all+=$source$'\n'
    printf '#include <%s>\nstatic_assert(sizeof(%s) > 0);\n%s\n' "$class" "$class" "$source" |
        compile -DQT_NO_KEYWORDS -DQT_NO_CAST_FROM_ASCII
done
[ -n "$all" ]
compile <<<"$all"
