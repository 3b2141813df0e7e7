/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userinfo.h"

#include "accountfile_p.h"
#include "accountlog_p.h"
#include "accountlookup_p.h"
#include "systemid_p.h"

#include <pwd.h>

UserInfo::UserInfo() = default;

const QString &UserInfo::name() const
{
    return m_name;
}

const QString &UserInfo::gecos() const
{
    return m_gecos;
}

const QString &UserInfo::home() const
{
    return m_home;
}

const QString &UserInfo::shell() const
{
    return m_shell;
}

const QList<GroupInfo> &UserInfo::groups() const
{
    return m_groups;
}

const GroupInfo &UserInfo::primaryGroup() const
{
    return m_primaryGroup;
}

uint UserInfo::uid() const
{
    return m_uid;
}

uint UserInfo::gid() const
{
    return m_gid;
}

bool UserInfo::isOrmelAdmin() const
{
    return m_ormelAdmin;
}

bool UserInfo::isEmpty() const
{
    return m_name.isEmpty();
}

bool UserInfo::isSystem() const
{
    return isSystemId(m_uid);
}

QStringList UserInfo::groupNames() const
{
    QStringList names;
    names.reserve(m_groups.size());
    for (const GroupInfo &group : m_groups) {
        names.append(group.name());
    }
    return names;
}

UserInfo UserInfo::getUser(passwd *entry)
{
    return AccountLookup().user(entry);
}

UserInfo UserInfo::getUser(const QString &name)
{
    passwd *entry = getpwnam(name.toLatin1().constData());
    return entry ? getUser(entry) : UserInfo();
}

UserInfo UserInfo::getUser(uint uid)
{
    passwd *entry = getpwuid(uid);
    return entry ? getUser(entry) : UserInfo();
}

QList<UserInfo> UserInfo::getUsers()
{
    const AccountFile file = openAccountFile(passwdPath);
    if (!file) {
        accountLog().warning("UserInfo: unable to open %s", passwdPath);
        return {};
    }
    AccountLookup lookup;
    QList<UserInfo> users;
    while (const passwd *entry = fgetpwent(file.get())) {
        users.append(lookup.user(entry));
    }
    return users;
}

QList<GroupInfo> UserInfo::getUserGroups(passwd *entry)
{
    return AccountLookup().groupsOf(entry);
}

void UserInfo::reload()
{
    AccountLookup lookup;
    const passwd *entry = getpwnam(m_name.toLatin1().constData());
    const QString primaryGroupName = *lookup.groupName(entry->pw_gid);
    lookup.fill(*this, entry, primaryGroupName);
}
