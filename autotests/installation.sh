#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# installation.sh cmake|pkgconfig SOURCE-DIR BUILD-DIR [COMPILER-FLAGS]: installs to a prefix of its
# own, and there builds and runs the example of the README as the README says.
set -euo pipefail

way=$1 source=$2 build=$3 flags=${4-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

# readme LANGUAGE LINE: the block in that language which has the line.
readme() {
    awk -v language="\`\`\`$1" -v line="$2" '
        $0 == language { inside = 1; block = ""; found = 0; next }
        $0 == "```" { if (inside && found) printf "%s", block; inside = 0 }
        inside { block = block $0 "\n"; if (index($0, line)) found = 1 }
    ' "$source/README.md"
}

cmake --install "$build" --prefix "$prefix" >"$work/install.log"
libdir=$(dirname "$(find "$prefix" -name libormel-users-qt.so.1)")
for class in "$source"/include/*.h; do
    test -e "$prefix/include/ormel-users-qt/$(basename "$class")"
done
[ "$(readelf -d "$libdir/libormel-users-qt.so" | sed -n 's/.*SONAME.*\[\(.*\)\]/\1/p')" = libormel-users-qt.so.1 ]
[ "$(readlink -f "$libdir/libormel-users-qt.so.1")" = "$libdir/libormel-users-qt.so.1.0.0" ]

mkdir "$work/example"
cd "$work/example"
readme cpp '#include <UserInfo>' >main.cpp
test -s main.cpp

case $way in
cmake)
    readme cmake 'find_package(OrmelUsersQt' >CMakeLists.txt
    cmake -G Ninja -S . -B . -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_FLAGS="$flags"
    cmake --build .
    ;;
pkgconfig)
    command=$(readme sh 'pkg-config' | sed "s#^c++ #c++ $flags #")
    echo "$command"
    PKG_CONFIG_PATH="$libdir/pkgconfig" bash -euc "$command"
    ;;
esac

# The program must say of each account what id says of it.
export LD_LIBRARY_PATH=$libdir
cut -d: -f1 /etc/passwd | while read -r name; do
    printf '%s: %s\n' "$name" "$(id -Gn "$name" | sed 's/ /, /g')"
done >expected
./example 2>warnings >actual
diff expected actual

# The translations are found next to the program: its own texts and the library's.
printf '@staff - core 1\n' >/etc/security/limits.conf
rm -f /etc/security/limits.d/*
LANGUAGE=de XDG_DATA_DIRS=$prefix/share "$prefix/bin/ormel-users" limits >german
grep -qx 'Regel  *Bedeutung' german
grep -q 'Gruppenname: „staff“' german
