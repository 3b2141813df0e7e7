#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# completions.sh PROGRAM: the completions that are installed in INSTALLED_PREFIX know every command and option
# in the help of the program, and bash offers no others.
set -euo pipefail

program=$1
share=$INSTALLED_PREFIX/share
bash_file=$share/bash-completion/completions/ormel-users
zsh_file=$(find "$share/zsh" -name _ormel-users)
fish_file=$share/fish/vendor_completions.d/ormel-users.fish

failures=0
fail() {
    echo "FAIL: $*"
    failures=$((failures + 1))
}

bash -n "$bash_file" || fail "$bash_file is no script for bash"
zsh -n "$zsh_file" || fail "$zsh_file is no script for zsh"
fish -n "$fish_file" || fail "$fish_file is no script for fish"

# options_of [COMMAND]: those in the help, one a line.
options_of() {
    "$program" "$@" --help | sed -nE 's/^  (-.*[^ ])  .*/\1/p' | grep -oE -- '(^|[ ,])--?[a-z-]+' | tr -d ' ,' | sort
}

# offered WORD...: what bash offers for the last word.
offered() {
    # shellcheck disable=SC2034 # read by the function
    (
        COMP_WORDS=(ormel-users "$@")
        COMP_CWORD=$#
        _ormel_users
        printf '%s\n' "${COMPREPLY[@]}" | sort
    )
}

same() {
    [ "$2" = "$3" ] || fail "$1: expected" "$2" "but there is" "$3"
}

# The options of a command for fish.
fish_options() {
    fish --no-config -c "source $fish_file; complete -C 'ormel-users $* -'" | cut -f1 | sort -u
}

# shellcheck disable=SC1090 # the file is what is tested
source "$bash_file"
commands=$("$program" --help | sed -nE '/^Commands:/,/^$/s/^  ([a-z-]+) .*/\1/p' | sort)
[ "$(wc -w <<<"$commands")" -ge 10 ] || fail "the commands cannot be told from the help: $commands"
same "commands in bash" "$commands" "$(offered '')"
same "commands in fish" "$commands" "$(fish --no-config -c "source $fish_file; complete -C 'ormel-users '" | cut -f1 | sort)"
same "options in bash" "$(options_of)" "$(offered -)"
same "options in fish" "$(options_of)" "$(fish_options)"
for command in $commands; do
    options=$(options_of "$command")
    same "options of $command in bash" "$options" "$(offered "$command" -)"
    same "options of $command in fish" "$options" "$(fish_options "$command")"
    # From its line on to the next command.
    part=$(sed -nE "/^        $command\\)/,/;;/p" "$zsh_file")
    for option in $options; do
        case $option in -h | --help) continue ;; esac
        grep -qE -- "[')]$option\\[" <<<"$part" || fail "zsh lacks $option of $command"
    done
    grep -q "'$command:" "$zsh_file" || fail "zsh lacks the command $command"
done

# Names, columns and items.
same "users" "$(compgen -u | sort)" "$(offered users '')"
same "groups of limits" "$(compgen -g | sort)" "$(offered limits --group '')"
same "columns" "name,uid" "$(offered users --columns name,ui)"
for command in users groups; do
    columns=$("$program" "$command" root --csv | head -n1 | tr , '\n' | sort)
    same "columns of $command" "$columns" "$(offered "$command" --columns '')"
done
items=$("$program" limits --user root --json | sed -nE 's/.*"item": "([a-z]+)".*/\1/p' | sort)
same "items" "$items" "$(offered limits --explain '')"
exit $((failures > 0))
