#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# documentedsymbols.sh LIBRARY INCLUDE-DIR GENERATED-DIR: the library exports whatever the public headers
# declare as public or protected. What they declare is taken from the compiler's debug information.
set -euo pipefail

library=$1 include=$2 generated=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
read -ra qt < <(pkg-config --cflags Qt5Widgets)

# Without translation, Qt puts no inline functions into the classes.
for header in "$include"/*.h; do
    echo "#include <$(basename "$header")>"
    sed -n 's/^ \* @class \([A-Za-z]*\) .*/\1/p' "$header" >>"$work/classes"
done | c++ -x c++ -std=c++17 -fPIC -DQT_NO_TRANSLATION -c \
    -gdwarf-4 -fno-eliminate-unused-debug-types -femit-class-debug-always \
    -I"$include" -I"$generated" "${qt[@]}" -o "$work/headers.o" -

# Each entry is a block of attributes. A constructor is declared as C4 or D4 and defined as C1 or D1.
readelf --debug-dump=info "$work/headers.o" 2>/dev/null | awk -v classes="$(tr '\n' ' ' <"$work/classes")" '
    function finish() {
        if (name ~ wanted && reachable && !deleted) {
            sub(/C4E/, "C1E", name)
            sub(/D4E/, "D1E", name)
            print name
        }
        name = ""
        reachable = deleted = 0
    }
    BEGIN {
        count = split(classes, names)
        for (i = 1; i <= count; i++) alternatives = alternatives (i > 1 ? "|" : "") length(names[i]) names[i]
        wanted = "^_ZNK?(" alternatives ")"
    }
    /DW_TAG_/ { finish() }
    /DW_AT_linkage_name/ { name = $NF }
    /DW_AT_accessibility.*(public|protected)/ { reachable = 1 }
    /DW_AT_deleted/ { deleted = 1 }
    END { finish() }
' | sort -u >"$work/declared"
nm -D --defined-only "$library" | awk '{ print $NF }' | sort -u >"$work/exported"

while read -r class; do
    if [ "$class" != UserUtils ] && ! grep -q "^_ZN${#class}${class}C1E" "$work/declared"; then
        echo "No constructor of $class is found in the headers"
        exit 1
    fi
done <"$work/classes"
missing=$(comm -23 "$work/declared" "$work/exported")
if [ -n "$missing" ]; then
    echo "Declared, but not exported:"
    c++filt <<<"$missing"
    exit 1
fi
echo "$(wc -l <"$work/declared") declared operations are exported"
