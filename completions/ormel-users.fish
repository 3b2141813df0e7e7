# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# Completes commands, options and names for ormel-users in fish.

complete -c ormel-users -f
complete -c ormel-users -s h -l help -d 'Show help'
complete -c ormel-users -n __fish_use_subcommand -s v -l version -d 'Show the version'
complete -c ormel-users -n __fish_use_subcommand -l screenshots -x -a '(__fish_complete_directories)' -d 'Write pictures of every page and dialog'

complete -c ormel-users -n __fish_use_subcommand -a users -d 'List users'
complete -c ormel-users -n __fish_use_subcommand -a groups -d 'List groups'
complete -c ormel-users -n __fish_use_subcommand -a check -d 'List problems with the accounts and limits'
complete -c ormel-users -n __fish_use_subcommand -a check-name -d 'Check a login name for a new user'
complete -c ormel-users -n __fish_use_subcommand -a check-group -d 'Check a group name'
complete -c ormel-users -n __fish_use_subcommand -a check-gecos -d 'Check a GECOS field'
complete -c ormel-users -n __fish_use_subcommand -a hash -d 'Hash a password from standard input'
complete -c ormel-users -n __fish_use_subcommand -a limits -d 'Show the resource limits'
complete -c ormel-users -n __fish_use_subcommand -a pick-icon -d 'Cut a square icon out of a picture'
complete -c ormel-users -n __fish_use_subcommand -a pick-users -d 'Pick users in a dialog'
complete -c ormel-users -n __fish_use_subcommand -a pick-groups -d 'Pick groups in a dialog'

complete -c ormel-users -n '__fish_seen_subcommand_from users' -a '(__fish_complete_users)'
complete -c ormel-users -n '__fish_seen_subcommand_from groups' -a '(__fish_complete_groups)'
complete -c ormel-users -n '__fish_seen_subcommand_from users groups' -l ordinary -d 'Leave out system accounts'
complete -c ormel-users -n '__fish_seen_subcommand_from users groups' -l system -d 'List only system accounts'
complete -c ormel-users -n '__fish_seen_subcommand_from users' -l administrators -d 'List only administrators'
complete -c ormel-users -n '__fish_seen_subcommand_from users' -l columns -x -a '(__fish_append , name fullName uid gid primaryGroup groups admin system gecos home shell)' -d 'Columns to print'
complete -c ormel-users -n '__fish_seen_subcommand_from groups' -l columns -x -a '(__fish_append , name gid members explicitMembers primaryMembers system)' -d 'Columns to print'
complete -c ormel-users -n '__fish_seen_subcommand_from users groups check limits' -l json -d 'Print JSON'
complete -c ormel-users -n '__fish_seen_subcommand_from users groups' -l csv -d 'Print comma-separated values'
complete -c ormel-users -n '__fish_seen_subcommand_from hash' -l gost -d 'Hash with GOST R 34.11-2012'
complete -c ormel-users -n '__fish_seen_subcommand_from limits' -l user -x -a '(__fish_complete_users)' -d 'Limits in the sessions of a user'
complete -c ormel-users -n '__fish_seen_subcommand_from limits' -l group -x -a '(__fish_complete_groups)' -d 'Limits that a group gives to its members'
complete -c ormel-users -n '__fish_seen_subcommand_from limits' -l explain -x -a 'as chroot core cpu data fsize locks maxlogins maxsyslogins memlock msgqueue nice nofile nonewprivs nproc priority rss rtprio sigpending stack' -d 'Why a line decides for an item'
complete -c ormel-users -n '__fish_seen_subcommand_from limits' -l rule -r -F -d 'For whom a line decides'
complete -c ormel-users -n '__fish_seen_subcommand_from limits' -l check -d 'Suspicious lines'
complete -c ormel-users -n '__fish_seen_subcommand_from limits' -l parser -d 'What programs get from LimitsParser'
complete -c ormel-users -n '__fish_seen_subcommand_from pick-icon' -F
complete -c ormel-users -n '__fish_seen_subcommand_from pick-icon' -l output -r -F -d 'PNG file to write'
complete -c ormel-users -n '__fish_seen_subcommand_from pick-users' -l group -x -a '(__fish_complete_groups)' -d 'Pick the members of a group'
complete -c ormel-users -n '__fish_seen_subcommand_from pick-groups' -l user -x -a '(__fish_complete_users)' -d 'Pick the groups of a user'
complete -c ormel-users -n '__fish_seen_subcommand_from pick-users pick-groups' -l single -d 'Pick one'
