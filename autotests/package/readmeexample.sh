#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# readmeexample.sh cmake|pkgconfig README [PREFIX [COMPILER-FLAGS]]: builds the example of the README in
# the way that the README shows, with the library below PREFIX or else with that of the system, and runs
# it.
set -euo pipefail

way=$1 readme=$2 prefix=${3-} flags=${4-}
readme=$(realpath "$readme")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# block LANGUAGE LINE: the block of the README in that language which has the line.
block() {
    awk -v language="\`\`\`$1" -v line="$2" '
        $0 == language { inside = 1; block = ""; found = 0; next }
        $0 == "```" { if (inside && found) printf "%s", block; inside = 0 }
        inside { block = block $0 "\n"; if (index($0, line)) found = 1 }
    ' "$readme"
}

if [ -n "$prefix" ]; then
    libdir=$(dirname "$(find "$prefix" -name libormel-users-qt.so.1)")
    export LD_LIBRARY_PATH=$libdir PKG_CONFIG_PATH=$libdir/pkgconfig CMAKE_PREFIX_PATH=$prefix
fi
block cpp '#include <UserInfo>' >main.cpp
test -s main.cpp

case $way in
cmake)
    block cmake 'find_package(OrmelUsersQt' >CMakeLists.txt
    cmake -G Ninja -S . -B . -DCMAKE_CXX_FLAGS="$flags"
    cmake --build .
    ;;
pkgconfig)
    command=$(block sh 'pkg-config' | sed "s#^c++ #c++ $flags #")
    echo "$command"
    bash -euc "$command"
    ;;
esac

# For each account the program must print the same as id.
cut -d: -f1 /etc/passwd | while read -r name; do
    printf '%s: %s\n' "$name" "$(id -Gn "$name" | sed 's/ /, /g')"
done >expected
./example 2>warnings >actual
diff expected actual
