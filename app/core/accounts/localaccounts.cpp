/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "localaccounts.h"

#include "recordtext.h"

#include <GroupInfo>
#include <UserInfo>

#include <QFile>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <memory>

#include <grp.h>

namespace
{
struct FileCloser {
    void operator()(FILE *file) const
    {
        fclose(file);
    }
};

/** When a file cannot be read, the library just returns no accounts. */
bool isReadable(const QString &path, QVector<UnreadableFile> &unreadable)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        return true;
    }
    unreadable.append({path, file.errorString()});
    return false;
}

QStringList memberNames(QStringList names)
{
    names.removeDuplicates();
    return RecordText::decode(names);
}

UserRecord record(const UserInfo &user)
{
    UserRecord record;
    record.name = RecordText::decode(user.name());
    record.gecos = user.gecos();
    record.home = RecordText::decode(user.home());
    record.shell = RecordText::decode(user.shell());
    record.primaryGroup = RecordText::decode(user.primaryGroup().name());
    record.groups = RecordText::decode(user.groupNames());
    const QList<GroupInfo> &groups = user.groups();
    std::transform(groups.begin(), groups.end(), std::back_inserter(record.gids), [](const GroupInfo &group) {
        return group.gid();
    });
    record.uid = user.uid();
    record.gid = user.gid();
    record.administrator = user.isOrmelAdmin();
    record.system = user.isSystem();
    return record;
}
}

QVector<GroupRecord> LocalAccounts::groups(QVector<UnreadableFile> &unreadable)
{
    const char path[] = "/etc/group";
    const std::unique_ptr<FILE, FileCloser> file(fopen(path, "re"));
    if (!isReadable(QString::fromLatin1(path), unreadable) || !file) {
        return {};
    }
    QVector<GroupRecord> groups;
    const QHash<uint, QStringList> primaryMembers = GroupInfo::getPrimaryGroups();
    while (::group *entry = fgetgrent(file.get())) {
        const GroupInfo group = GroupInfo::getGroup(entry);
        groups.append({RecordText::decode(group.name()),
                       memberNames(group.users()),
                       memberNames(primaryMembers.value(group.gid())),
                       group.gid(),
                       group.isSystem()});
    }
    return groups;
}

QVector<UserRecord> LocalAccounts::users(QVector<UnreadableFile> &unreadable)
{
    if (!isReadable(QStringLiteral("/etc/passwd"), unreadable)) {
        return {};
    }
    const QList<UserInfo> users = UserInfo::getUsers();
    QVector<UserRecord> records;
    records.reserve(users.size());
    std::transform(users.begin(), users.end(), std::back_inserter(records), record);
    return records;
}

bool LocalAccounts::hasAdministratorsGroup()
{
    return !GroupInfo::getGroup(QStringLiteral("ormel-admin")).isEmpty();
}
