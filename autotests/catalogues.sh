#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# catalogues.sh SOURCE-DIR: the texts to translate are those of the code, and each of them is
# translated into each language, with the placeholders and the mnemonic it has.
set -euo pipefail

source=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0

"$source/scripts/extract-messages" "$work"
for domain in ormel_kcm_users ormel-users; do
    if ! diff -u "$source/po/$domain.pot" "$work/$domain.pot"; then
        echo "po/$domain.pot is not current: run scripts/extract-messages and translate what is new"
        status=1
    fi
    for language in "$source"/po/*/; do
        po=$language$domain.po
        if ! msgfmt --check --check-accelerators -o /dev/null "$po" || ! msgcmp "$po" "$source/po/$domain.pot"; then
            echo "${po#"$source/"} is not complete"
            status=1
        fi
    done
done
exit "$status"
