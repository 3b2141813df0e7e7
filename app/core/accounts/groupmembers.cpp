/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "groupmembers.h"

#include <cstdio>
#include <memory>

#include <grp.h>

namespace
{
struct StreamCloser {
    void operator()(FILE *stream) const
    {
        fclose(stream);
    }
};
}

QStringList GroupMembers::all() const
{
    QStringList names = group.users() + primary;
    names.removeDuplicates();
    return names;
}

QList<GroupMembers> GroupMembers::ofAllGroups()
{
    const std::unique_ptr<FILE, StreamCloser> file(fopen("/etc/group", "re"));
    if (!file) {
        return {};
    }
    const QHash<uint, QStringList> primaryMembers = GroupInfo::getPrimaryGroups();
    QList<GroupMembers> result;
    while (::group *entry = fgetgrent(file.get())) {
        result.append({GroupInfo::getGroup(entry), primaryMembers.value(entry->gr_gid)});
    }
    return result;
}

GroupMembers GroupMembers::of(const GroupInfo &group)
{
    ::group *entry = getgrnam(group.name().toLatin1().constData());
    if (!entry) {
        return {};
    }
    const GroupInfo named = GroupInfo::getGroup(entry);
    return {named, GroupInfo::getPrimaryGroups().value(named.gid())};
}
