#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# catalogues.sh SOURCE-DIR: the texts to translate are those of the code, and each of them is
# translated into each language, with its placeholders and its mnemonic. The same is true for the
# texts of the desktop file and of the metadata.
set -euo pipefail

source=$1
desktop=$source/app/org.ormel.users.desktop
metainfo=$source/app/org.ormel.users.metainfo.xml
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
fail() {
    echo "$*"
    status=1
}

"$source/scripts/update" messages "$work"
for domain in ormel_kcm_users ormel-users; do
    # Releases of gettext break lines at different places.
    diff -u <(msgcat --no-wrap "$source/po/$domain.pot") <(msgcat --no-wrap "$work/$domain.pot") ||
        fail "po/$domain.pot is not current: run scripts/update messages and translate what is new"
done

# texts ATTRIBUTE: how many paragraphs, items and summaries have it, or none with "".
texts() {
    grep -cE "<(summary|p|li)$1>" "$metainfo" || true
}

for directory in "$source"/po/*/; do
    language=$(basename "$directory")
    for domain in ormel_kcm_users ormel-users; do
        po=$directory$domain.po
        msgfmt --check --check-accelerators -o /dev/null "$po" || fail "po/$language/$domain.po is not valid"
        msgcmp "$po" "$source/po/$domain.pot" || fail "po/$language/$domain.po is not complete"
    done
    for key in GenericName Comment Keywords; do
        grep -q "^${key}\[$language\]=." "$desktop" || fail "${desktop##*/} lacks $key in $language"
    done
    [ "$(texts " xml:lang=\"${language/_/-}\"")" -eq "$(texts '')" ] || fail "${metainfo##*/} is not complete: $language"
done
exit "$status"
