#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# headerexamples.sh INCLUDE-DIR GENERATED-DIR: each public class has an example in its comment, and the examples
# in the headers compile without a warning. They are parts of a dialog, whose other parts headerexamples.h has.
set -euo pipefail

include=$1 generated=$2
tests=$(dirname "$0")
work=$(mktemp)
trap 'rm -f "$work"' EXIT
read -ra qt < <(pkg-config --cflags Qt5Widgets | sed 's/-I/-isystem /g')

missing=$(grep -l '@class' "$include"/*.h | xargs -d '\n' grep -L '^ \* @code$' || true)
if [ -n "$missing" ]; then
    echo "No example in" "$missing"
    exit 1
fi
awk '
    /^ *\* @code$/ {
        printf "template<>\nvoid ExampleDialog::example<%d>()\n{\n#line %d \"%s\"\n", ++number, FNR + 1, FILENAME
        inside = 1
        next
    }
    /^ *\* @endcode$/ { if (inside) print "}"; inside = 0 }
    inside { sub(/^ *\* ?/, ""); print }
' "$include"/*.h >"$work"
c++ -x c++ -std=c++17 -fPIC -fsyntax-only -Wall -Wextra -pedantic -Werror -DQT_NO_CAST_FROM_ASCII \
    -include headerexamples.h -I"$tests" -I"$include" -I"$generated" "${qt[@]}" "$work"
