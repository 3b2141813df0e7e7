#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# applicationfiles.sh PROGRAM: the files that are installed with the application in INSTALLED_PREFIX
# are valid and match each other, and the manual page has every command and option of the program.
set -euo pipefail

program=$1
share=$INSTALLED_PREFIX/share
desktop=$share/applications/org.ormel.users.desktop
metainfo=$share/metainfo/org.ormel.users.metainfo.xml
page=$share/man/man1/ormel-users.1

failures=0
fail() {
    echo "FAIL: $*"
    failures=$((failures + 1))
}

# Hints and warnings are only printed by the first and the last.
output=$(desktop-file-validate "$desktop" 2>&1) || true
[ -z "$output" ] || fail "desktop-file-validate: $output"
# AppStream 1 wants a home page, which there is not, and the developer's name in a way that 0.16 does not know.
override=()
if [[ $(appstreamcli --version) != *' 0.'* ]]; then
    override=(--override "url-homepage-missing=pedantic,developer-name-tag-deprecated=pedantic,developer-info-missing=pedantic")
fi
output=$(appstreamcli validate --no-net --strict --pedantic "${override[@]}" "$metainfo" 2>&1) || fail "appstreamcli: $output"
text=$(MANROFFOPT='' MANWIDTH=1000 man --warnings --local-file "$page" 2>"$share/warnings" | col -bx)
[ ! -s "$share/warnings" ] || fail "man: $(<"$share/warnings")"

value() {
    sed -n "s/^$1=//p" "$desktop"
}
[ -x "$INSTALLED_PREFIX/bin/$(value Exec)" ] || fail "no program $(value Exec)"
[ -e "$share/icons/hicolor/scalable/apps/$(value Icon).svg" ] || fail "no icon $(value Icon)"
grep -qF "<launchable type=\"desktop-id\">${desktop##*/}<" "$metainfo" || fail "the metadata launches something else"
grep -qF "<release version=\"$("$program" --version | cut -d' ' -f2)\"" "$metainfo" || fail "the metadata lack this version"

# options_in TEXT: the options that occur in it, one a line, but for those of every command.
options_in() {
    grep -oE -- '(^|[^-[:alnum:]])--?[a-z][a-z-]*' <<<"$1" | grep -oE -- '--?[a-z-]+' | grep -vxE -- '-h|--help' | sort -u || true
}

# The column of options ends where two spaces follow.
help_options() {
    options_in "$("$program" "$@" --help | sed -nE 's/^  (-.*[^ ])  .*/\1/p')"
}

# entry WORD: what the page has for a command, in one line as wide as the page.
entry() {
    grep -E "^ {7}$1( |\$)" <<<"$text" || true
}

for option in $(help_options) --help; do
    grep -qE "^ {7}(-., )?$option( |\$)|^ {7}$option," <<<"$text" || fail "the page lacks the option $option"
done
commands=$("$program" --help | sed -nE '/^Commands:/,/^$/s/^  ([a-z-]+) .*/\1/p')
[ "$(wc -w <<<"$commands")" -ge 10 ] || fail "the commands cannot be told from the help: $commands"
for command in $commands; do
    documented=$(entry "$command")
    if [ -z "$documented" ]; then
        fail "the page lacks the command $command"
    elif [ "$(options_in "$documented")" != "$(help_options "$command")" ]; then
        fail "$command has the options" "$(help_options "$command")" "but in the page" "$(options_in "$documented")"
    fi
done
exit $((failures > 0))
