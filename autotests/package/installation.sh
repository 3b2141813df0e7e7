#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# installation.sh cmake|pkgconfig SOURCE-DIR BUILD-DIR [COMPILER-FLAGS]: installs to a prefix, copies it
# to another place, and there builds and runs the example of the README as the README says.
set -euo pipefail

way=$1 source=$2 build=$3 flags=${4-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

cmake --install "$build" --prefix "$work/first" >"$work/install.log"
cp -a "$work/first" "$prefix"
rm -rf "$work/first"
libdir=$(dirname "$(find "$prefix" -name libormel-users-qt.so.1)")
for header in "$source"/include/*.h; do
    cmp "$header" "$prefix/include/ormel-users-qt/$(basename "$header")"
done
[ "$(readelf -d "$libdir/libormel-users-qt.so" | sed -n 's/.*SONAME.*\[\(.*\)\]/\1/p')" = libormel-users-qt.so.1 ]
[ "$(readlink -f "$libdir/libormel-users-qt.so.1")" = "$libdir/libormel-users-qt.so.1.0.0" ]
if ldd "$libdir/libormel-users-qt.so.1" | grep 'not found'; then
    exit 1
fi

"$source/autotests/package/readmeexample.sh" "$way" "$source/README.md" "$prefix" "$flags"

export LD_LIBRARY_PATH=$libdir
# The translations are found next to the program: its own texts and the library's.
printf '@staff - core 1\n' >/etc/security/limits.conf
rm -f /etc/security/limits.d/*
LANGUAGE=de XDG_DATA_DIRS=$prefix/share "$prefix/bin/ormel-users" limits --parser >german
grep -qx 'Regel  *Bedeutung' german
grep -q 'Gruppenname: „staff“' german
