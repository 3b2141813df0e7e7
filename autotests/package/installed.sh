#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# installed.sh BUILD-DIR COMMAND [ARGUMENT]...: installs to a prefix of its own and runs the command
# with the data there, and INSTALLED_PREFIX telling where that is.
set -euo pipefail

build=$1
shift
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
if ! log=$(cmake --install "$build" --prefix "$prefix" 2>&1); then
    echo "$log" >&2
    exit 1
fi
export INSTALLED_PREFIX=$prefix
export XDG_DATA_DIRS=$prefix/share:${XDG_DATA_DIRS:-/usr/local/share:/usr/share}
"$@"
