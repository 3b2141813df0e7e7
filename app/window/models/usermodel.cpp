/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "usermodel.h"

#include "accounticons.h"

namespace
{
const QVector<RecordModel::Column> &userColumns()
{
    // In the order of UserModel::Column.
    static const QVector<RecordModel::Column> columns{
        {"name", kli18nc("@title:column of users", "Login")},
        {"fullName", kli18nc("@title:column of users", "Full name")},
        {"uid", kli18nc("@title:column the number of a user", "UID")},
        {"primaryGroup", kli18nc("@title:column of users", "Primary group")},
        {"groups", kli18nc("@title:column of users", "Groups")},
        {"administrator",
         kli18nc("@title:column of users", "Administrator"),
         kli18nc("@item whether a user is an administrator", "Yes"),
         kli18nc("@item whether a user is an administrator", "No")},
        {"shell", kli18nc("@title:column of users", "Login shell")},
        {"system",
         kli18nc("@title:column of users", "Kind"),
         kli18nc("@item the kind of a user", "System account"),
         kli18nc("@item the kind of a user", "Ordinary user")},
        {"home", kli18nc("@title:column of users", "Home directory")},
        {"gid", kli18nc("@title:column the number of a group", "GID")},
    };
    return columns;
}
}

UserModel::UserModel(QObject *parent)
    : AccountRecordModel(userColumns(), AccountIcons::user(), AccountIcons::systemUser(), parent)
{
}

QVariant UserModel::value(int record, int column) const
{
    const UserRecord &user = at(record);
    switch (column) {
    case NameColumn:
        return user.name;
    case FullNameColumn:
        return user.fullName();
    case UidColumn:
        return user.uid;
    case PrimaryGroupColumn:
        return user.primaryGroup;
    case GroupsColumn:
        return user.groups;
    case AdministratorColumn:
        return user.administrator;
    case ShellColumn:
        return user.shell;
    case KindColumn:
        return user.system;
    case HomeColumn:
        return user.home;
    case GidColumn:
        return user.gid;
    default:
        return {};
    }
}

bool UserModel::passes(int record, int filter) const
{
    const UserRecord &user = at(record);
    switch (filter) {
    case Ordinary:
        return !user.system;
    case System:
        return user.system;
    case Administrators:
        return user.administrator;
    default:
        return true;
    }
}

bool UserModel::contains(int record, const SearchWords::Word &word) const
{
    const UserRecord &user = at(record);
    return word.isIn(user.name) || word.isIn(user.gecos) || word.isIn(user.uid) || word.isIn(user.gid)
        || word.isIn(user.groups) || word.isIn(user.home) || word.isIn(user.shell);
}
