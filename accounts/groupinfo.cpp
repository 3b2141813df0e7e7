/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "groupinfo.h"

#include "accountfile_p.h"
#include "accountlog_p.h"
#include "accountlookup_p.h"
#include "systemid_p.h"

#include <grp.h>
#include <pwd.h>

GroupInfo::GroupInfo() = default;

const QString &GroupInfo::name() const
{
    return m_name;
}

const QStringList &GroupInfo::users() const
{
    return m_users;
}

uint GroupInfo::gid() const
{
    return m_gid;
}

bool GroupInfo::isEmpty() const
{
    return m_name.isEmpty();
}

bool GroupInfo::isSystem() const
{
    return isSystemId(m_gid);
}

bool GroupInfo::isPrimaryOf(const QString &userName) const
{
    if (isEmpty()) {
        return false;
    }
    const passwd *entry = getpwnam(userName.toLatin1().constData());
    return entry && entry->pw_gid == m_gid;
}

bool GroupInfo::operator==(const GroupInfo &other) const
{
    return m_name == other.m_name && m_gid == other.m_gid && m_users == other.m_users;
}

bool GroupInfo::operator!=(const GroupInfo &other) const
{
    return !(*this == other);
}

GroupInfo GroupInfo::getGroup(group *entry)
{
    return AccountLookup().record(entry);
}

GroupInfo GroupInfo::getGroup(const QString &name)
{
    return AccountLookup().group(name);
}

GroupInfo GroupInfo::getGroup(uint gid)
{
    return AccountLookup().group(gid);
}

QList<GroupInfo> GroupInfo::getGroups()
{
    const AccountFile file = openAccountFile(groupPath);
    if (!file) {
        accountLog().warning("GroupInfo: unable to open %s", groupPath);
        return {};
    }
    AccountLookup lookup;
    lookup.preparePrimaryMembers();
    QList<GroupInfo> groups;
    while (const group *entry = fgetgrent(file.get())) {
        groups.append(lookup.completed(entry));
    }
    return groups;
}

QHash<uint, QStringList> GroupInfo::getPrimaryGroups()
{
    return AccountLookup().primaryGroups();
}

void GroupInfo::reload()
{
    const GroupInfo current = getGroup(m_name);
    m_gid = current.m_gid;
    m_users = current.m_users;
}
