#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# doclinks.sh SOURCE-DIR: the links in the documentation lead to existing files and headings.
set -euo pipefail
cd "$1"

# The names that web pages give to the headings of a page.
anchors() {
    sed -n 's/^##* //p' "$1" | tr '[:upper:]' '[:lower:]' | sed 's/[^[:alnum:] _-]//g; s/ /-/g'
}

count=0 status=0
for page in *.md docs/*.md; do
    # shellcheck disable=SC2016 # the backticks are those of code blocks
    while read -r link; do
        file=${link%%#*} anchor=
        [[ $link != *#* ]] || anchor=${link#*#}
        target=$page
        [ -z "$file" ] || target=$(dirname "$page")/$file
        if [ ! -e "$target" ] || { [ -n "$anchor" ] && ! grep -qxF -- "$anchor" <(anchors "$target"); }; then
            echo "$page: nothing is at $link"
            status=1
        fi
        count=$((count + 1))
    done < <(sed '/^```/,/^```$/d' "$page" | grep -oP '\]\(\K[^)]+' | grep -v '^[a-z]*://' || true)
done
echo "$count links"
[ "$count" -gt 0 ] && exit "$status"
