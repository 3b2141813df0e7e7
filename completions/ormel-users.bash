# shellcheck shell=bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# Completes commands, options and names for ormel-users in bash.

# Offers the matching ones of the given words for the word that is being typed.
_ormel_users_reply() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2")
}

# A list of columns, whose last one is completed.
_ormel_users_columns() {
    local before=${2%"${2##*,}"}
    mapfile -t COMPREPLY < <(compgen -P "$before" -W "$1" -- "${2##*,}")
    compopt -o nospace 2>/dev/null
}

_ormel_users() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local command=
    [ "$COMP_CWORD" -le 1 ] || command=${COMP_WORDS[1]}
    local user_columns="name fullName uid gid primaryGroup groups admin system gecos home shell"
    local group_columns="name gid members explicitMembers primaryMembers system"
    COMPREPLY=()

    case $command:$previous in
    users:--columns) _ormel_users_columns "$user_columns" "$current"; return ;;
    groups:--columns) _ormel_users_columns "$group_columns" "$current"; return ;;
    limits:--user | pick-groups:--user)
        mapfile -t COMPREPLY < <(compgen -u -- "$current")
        return
        ;;
    limits:--group | pick-users:--group)
        mapfile -t COMPREPLY < <(compgen -g -- "$current")
        return
        ;;
    limits:--explain)
        _ormel_users_reply "as chroot core cpu data fsize locks maxlogins maxsyslogins memlock msgqueue nice nofile nonewprivs nproc priority rss rtprio sigpending stack" "$current"
        return
        ;;
    limits:--rule | pick-icon:--output)
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
        return
        ;;
    :--screenshots | --screenshots:*)
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
        return
        ;;
    esac

    if [ -z "$command" ] && [[ $current != -* ]]; then
        _ormel_users_reply "users groups check check-name check-group check-gecos hash limits \
            pick-icon pick-users pick-groups" "$current"
        return
    fi
    if [[ $current != -* ]]; then
        case $command in
        users) mapfile -t COMPREPLY < <(compgen -u -- "$current") ;;
        groups) mapfile -t COMPREPLY < <(compgen -g -- "$current") ;;
        pick-icon) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
        esac
        return
    fi
    case $command in
    '') _ormel_users_reply "-h --help -v --version --screenshots" "$current" ;;
    users)
        _ormel_users_reply "-h --help --ordinary --system --administrators --columns --json --csv" "$current"
        ;;
    groups) _ormel_users_reply "-h --help --ordinary --system --columns --json --csv" "$current" ;;
    check) _ormel_users_reply "-h --help --json" "$current" ;;
    hash) _ormel_users_reply "-h --help --gost" "$current" ;;
    limits)
        _ormel_users_reply "-h --help --user --group --explain --rule --check --json --parser" "$current"
        ;;
    pick-icon) _ormel_users_reply "-h --help --output" "$current" ;;
    pick-users) _ormel_users_reply "-h --help --group --single" "$current" ;;
    pick-groups) _ormel_users_reply "-h --help --user --single" "$current" ;;
    *) _ormel_users_reply "-h --help" "$current" ;;
    esac
}

complete -F _ormel_users ormel-users
