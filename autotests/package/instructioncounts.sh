#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# instructioncounts.sh WORKLOADS [FIGURES]: counts what the workloads cost in our own code, and fails
# when a figure is over a tenth higher than in the file FIGURES. Without that file, prints its new
# contents. Each workload has two figures: the instructions of our own code, and its calls of other
# libraries. The instructions inside these are not counted, since they differ between machines.
set -euo pipefail

workloads=$1
figures=${2:-}

profile=$(mktemp -d)
trap 'rm -rf "$profile"' EXIT
# Addresses are resolved at the start and hashes are not salted, so that all runs are alike.
LD_BIND_NOW=1 QT_HASH_SEED=0 valgrind --tool=callgrind --instr-atstart=no \
    --callgrind-out-file="$profile/part" "$workloads" 2>"$profile/log" || {
    cat "$profile/log"
    exit 1
}

# In a profile, "fn=" and its object "ob=" head the lines of costs; "calls=" is followed by a line with
# what the callee costs. Its object is in "cob=", unless it is the same. A name in full is given once.
counted=$(awk '
    function object(text, id) {
        id = substr(text, 1, index(text, ")"))
        if (length(text) > length(id)) {
            ours[id] = text ~ /\/lib(ormel-users-qt|gost)\.so/
        }
        return id
    }
    FNR == 1 { split("", ours); instructions = calls = 0; own = callee = "" }
    sub(/^desc: Trigger: Client Request: /, "") { name = $0 }
    sub(/^ob=/, "") { own = object($0); next }
    sub(/^cob=/, "") { callee = object($0); next }
    sub(/^calls=/, "") {
        if (ours[own] && callee != "" && !ours[callee]) {
            calls += $1
        }
        callee = ""
        getline
        next
    }
    /^[0-9+*-]/ && ours[own] { instructions += $2 }
    /^totals:/ && name != "" { print name, instructions, calls; name = "" }
' "$profile"/part.*)

if [ -z "$figures" ]; then
    echo "$counted"
    exit
fi

awk '
    FNR == NR { instructions[$1] = $2; calls[$1] = $3; next }
    /^#/ { next }
    function check(what, stored, counted) {
        if (counted > 1.1 * stored) {
            printf "%s: %d %s, stored are %d\n", $1, counted, what, stored
            failed = 1
        }
    }
    !($1 in instructions) { print $1 ": not counted"; failed = 1; next }
    { check("instructions", $2, instructions[$1]); check("calls", $3, calls[$1]); delete instructions[$1] }
    END {
        for (name in instructions) { print name ": no figures stored"; failed = 1 }
        if (failed) { print "If the increase is intended, run scripts/update counts." }
        exit failed
    }
' <(echo "$counted") "$figures"
