#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# headerexamples.sh INCLUDE-DIR GENERATED-DIR: the example in the comment on each public class compiles
# without a warning. The examples are parts of a dialog, whose other parts headerexamples.h has.
set -euo pipefail

include=$1 generated=$2
tests=$(dirname "$0")
read -ra qt < <(pkg-config --cflags Qt5Widgets | sed 's/-I/-isystem /g')

for header in "$include"/*.h; do
    example=$(sed -n '/^ \* @code$/,/^ \* @endcode$/p' "$header" | sed '1d; $d; s/^ \* \{0,1\}//')
    if [ -z "$example" ]; then
        echo "$header: no example"
        exit 1
    fi
    printf '#include "headerexamples.h"\nvoid ExampleDialog::example()\n{\n%s\n}\n' "$example" |
        c++ -x c++ -std=c++17 -fPIC -fsyntax-only -Wall -Wextra -pedantic -Werror -DQT_NO_CAST_FROM_ASCII \
            -I"$tests" -I"$include" -I"$generated" "${qt[@]}" -
done
