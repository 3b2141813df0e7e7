#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# nameservices.sh PROGRAM: compares what the program says with getent and id, where a second name service knows
# one more user and puts a local user into one more group.
set -euo pipefail

[ -e /etc/ormel-sandbox ] || exit 1
ormel_users=$1
sed -i 's/^\(passwd\|group\):.*/& extrausers/' /etc/nsswitch.conf
echo 'alice:x:2001:2001::/home/alice:/bin/sh' >>/etc/passwd
printf 'alice:x:2001:\normel-admin:x:2002:alice\n' >>/etc/group
echo 'erin:x:3001:3002::/home/erin:/bin/sh' >/var/lib/extrausers/passwd
echo 'research:x:3002:alice' >/var/lib/extrausers/group
echo '@research hard nofile 1234' >/etc/security/limits.conf
id alice
id erin | grep -F '3002(research)'

# The columns that are compared, with one space between them.
cut -d: -f1 /etc/passwd | while read -r name; do
    echo "$name $(id -u "$name") $(id -gn "$name") $(id -Gn "$name" | tr ' ' ,)"
done >/tmp/expected
"$ormel_users" users --columns name,uid,primaryGroup,groups | sed 1d | tr -s ' ' | diff /tmp/expected -
grep -q '^alice .*research' /tmp/expected

cut -d: -f1 /etc/group | while read -r name; do
    getent group "$name" | cut -d: -f1,3 --output-delimiter=' '
done >/tmp/expected
"$ormel_users" groups | sed 1d | awk '{ print $1, $2 }' | diff /tmp/expected -

# Users of the other service are not listed, but can be looked up.
for name in alice erin; do
    "$ormel_users" limits --user "$name" | grep -E '^nofile .* 1234 '
done
if "$ormel_users" limits --user nobody-else; then
    echo "Limits of nobody"
    exit 1
fi
