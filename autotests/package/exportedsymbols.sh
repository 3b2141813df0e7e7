#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# exportedsymbols.sh PROJECT LIBRARY CLASS...: the library exports these classes, each with something,
# and nothing else. Nothing exported names a class of a private header.
set -euo pipefail

project=$1
library=$2
shift 2
symbols=$(nm -DC --defined-only "$library")

classes=$(IFS='|'; echo "$*")
strays=$(grep -vE "^[0-9a-f]+ [TBDRVW] ((vtable|typeinfo|typeinfo name) for |non-virtual thunk to )?($classes)(::|$)" <<<"$symbols" || true)
if [ -n "$strays" ]; then
    echo "Exported, but not part of the interface:"
    echo "$strays"
    exit 1
fi
private=$(sed -nE 's/^(class|struct) ([A-Za-z]+)[^;]*$/\2/p' "$project"/*/*_p.h | paste -sd '|')
if grep -wE "$private" <<<"$symbols"; then
    echo "Exported, but of a private header"
    exit 1
fi
for class in "$@"; do
    if ! grep -qE " T $class::" <<<"$symbols"; then
        echo "Not exported: $class"
        exit 1
    fi
done

# Applications take the address of exported data, and the C library's functions stay interposable.
if readelf -d "$library" | grep -qE 'SYMBOLIC'; then
    echo "Linked with -Bsymbolic"
    exit 1
fi
if readelf --dyn-syms "$library" | grep -q ' PROTECTED '; then
    echo "Symbols with protected visibility"
    exit 1
fi

# In the order in which most symbols are found soonest
needed=$(readelf -d "$library" | sed -nE 's/.*NEEDED.*\[lib(.*)\.so\..*\]/\1/p' | head -n 5 | paste -sd ' ')
if [ "$needed" != "Qt5Core Qt5Widgets Qt5Gui stdc++ KF5I18n" ]; then
    echo "Loaded in another order: $needed"
    exit 1
fi
