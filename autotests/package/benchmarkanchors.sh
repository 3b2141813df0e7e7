#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# benchmarkanchors.sh PROJECT: the explanations that the benchmarks link to, such as "#loading", are
# headings of docs/performance.md.
set -euo pipefail
cd "$1"

anchors=$(grep -ohE '"#[^"]+"' benchmarks/*.cpp | tr -d '"' | sort -u)
# As web pages of the documentation name them
headings=$(sed -nE 's/^#+ +/#/p' docs/performance.md | tr '[:upper:] ' '[:lower:]-' | tr -cd '#a-z0-9_\n-' | sort -u)

missing=$(comm -23 <(echo "$anchors") <(echo "$headings"))
if [ -n "$missing" ]; then
    echo "docs/performance.md has no heading for"
    echo "$missing"
    exit 1
fi
