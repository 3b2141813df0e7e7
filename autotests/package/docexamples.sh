#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# docexamples.sh SOURCE-DIR BUILD-DIR: compiles each C++ example of the documentation by itself.
set -euo pipefail

source=$1 build=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

awk -v work="$work" '
    /^```cpp$/ { name = FILENAME; sub(".*/", "", name); file = sprintf("%s/%s-%d.cpp", work, name, FNR); next }
    /^```$/ { file = "" }
    file { print > file }
' "$source"/docs/*.md

read -ra flags <<<"$(pkg-config --cflags Qt5Widgets)"
examples=("$work"/*.cpp)
test -e "${examples[0]}"
for example in "${examples[@]}"; do
    basename "$example"
    c++ -std=c++17 -fPIC -fsyntax-only -Wall -Wextra -Werror "${flags[@]}" \
        -I "$source/include" -I "$build/generated" "$example"
done
