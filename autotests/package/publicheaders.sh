#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Ormel Users contributors
# SPDX-License-Identifier: LGPL-2.1-or-later
#
# publicheaders.sh INCLUDE-DIR (alone|together "COMPILER FLAG...")...: the public headers can be included first,
# twice, include what their signatures name, and cause no warnings: each in a program of its own, or all in one.
# Where there are forwarding headers, as in an installation, those are included instead.
set -euo pipefail

include=$1
shift
read -ra qt < <(pkg-config --cflags Qt5Widgets | sed 's/-I/-isystem /g')

declare -A uses=(
    [GroupInfo]='GroupInfo group = GroupInfo::getGroup(getgrgid(0)); group.users().contains(group.name());'
    [GroupListModel]='GroupListModel model{QString(), QStringList()}; model.group(model.index(0, 0))->users().size();
        model.setFilter(GroupListModel::Ordinary); model.data(QModelIndex()).toString().size();'
    [GroupSelectDialog]='GroupSelectDialog dialog{QString(), QStringList()}; dialog.selectedGroupNames().size();
        dialog.on_groupsTreeView_doubleClicked(QModelIndex()); GroupListModel(nullptr).setFilter(GroupListModel::Selected);'
    [LimitsParser]='LimitsParser limits; limits.getItem(UserInfo::getUser(0u), QString()).toInt();
        limits.getItem(GroupInfo::getGroup(0u), QString()).toInt(); limits.fields().size();'
    [UserIconDialog]='UserIconDialog dialog; dialog.setPixmap(QPixmap(1, 1)); dialog.selectedPixmap().toImage();
        dialog.on_fileButton_clicked(false); dialog.on_clipboardButton_clicked();'
    [UserInfo]='UserInfo user = UserInfo::getUser(getpwuid(0)); user.primaryGroup().users().contains(user.name());'
    [UserListModel]='UserListModel model{GroupInfo(), QStringList()}; model.user(model.index(0, 0))->groups().size();
        model.setFilter(UserListModel::Ordinary); model.data(QModelIndex()).toString().size();'
    [UserSelectDialog]='UserSelectDialog dialog{GroupInfo(), QStringList()}; dialog.selectedUserNames().size();
        dialog.on_usersTreeView_doubleClicked(QModelIndex()); UserListModel(nullptr).setFilter(UserListModel::Ordinary);'
    [UserUtils]='QObject parent; QString text; int position = 0;
        UserUtils::createUserNameValidator(&parent)->validate(text, position); UserUtils::userIconPath().size();'
)

classes=$(sed -n 's/^ \* @class .*<\(.*\)>$/\1/p' "$include"/*.h)
if [ "$(wc -l <<<"$classes")" -ne ${#uses[@]} ]; then
    echo "Not the classes that are used here: $classes"
    exit 1
fi

# program CLASS...: a program that includes and uses these classes.
program() {
    local class header
    for class in "$@"; do
        header=${class,,}.h
        [ ! -e "$include/$class" ] || header=$class
        printf '#include <%s>\n#include <%s>\nvoid use%s();\nvoid use%s() { %s }\n' \
            "$header" "$header" "$class" "$class" "${uses[$class]}"
    done
}

# compile COMMAND CLASS...
compile() {
    local command
    read -ra command <<<"$1"
    shift
    echo "${command[*]}: $*"
    program "$@" | "${command[@]}" -x c++ -fPIC -fsyntax-only -Wall -Wextra -pedantic -Werror -I"$include" "${qt[@]}" -
}

mapfile -t classes <<<"$classes"
while [ $# -gt 0 ]; do
    case $1 in
    alone) for class in "${classes[@]}"; do compile "$2" "$class"; done ;;
    together) compile "$2" "${classes[@]}" ;;
    *) exit 2 ;;
    esac
    shift 2
done
