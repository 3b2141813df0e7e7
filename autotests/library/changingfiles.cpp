/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "changingfiles.h"

#include <algorithm>
#include <cstdio>
#include <memory>

#include <grp.h>
#include <pwd.h>

namespace
{
using File = std::unique_ptr<FILE, int (*)(FILE *)>;

File opened(const QByteArray &content)
{
    return File(fmemopen(const_cast<char *>(content.constData()), static_cast<size_t>(content.size()), "r"), fclose);
}

QString lineOf(const QString &name, uint uid, uint gid, const QString &gecos, const QString &home, const QString &shell)
{
    return QStringList({name, QString::number(uid), QString::number(gid), gecos, home, shell}).join(QLatin1Char(':'));
}

QString keyOf(const QString &name, uint gid)
{
    return name + QLatin1Char(':') + QString::number(gid);
}

template<typename Record>
QStringList namesOf(const QList<Record> &records)
{
    QStringList names;
    for (const Record &record : records) {
        names.append(record.name());
    }
    return names;
}
}

PossibleAccounts::PossibleAccounts(const QByteArrayList &passwdVersions, const QByteArrayList &groupVersions)
    // An empty file, or one that cannot be opened.
    : m_userLists{{}}
    , m_groupLists{{}}
{
    for (const QByteArray &version : passwdVersions) {
        for (int size = 1; size <= version.size(); ++size) {
            addPasswd(version.left(size));
        }
    }
    for (const QByteArray &version : groupVersions) {
        for (int size = 1; size <= version.size(); ++size) {
            addGroups(version.left(size));
        }
    }
}

void PossibleAccounts::addPasswd(const QByteArray &passwd)
{
    const File file = opened(passwd);
    QStringList names;
    QHash<uint, QStringList> primaryMembers;
    while (const ::passwd *entry = fgetpwent(file.get())) {
        const QString name = QString::fromLatin1(entry->pw_name);
        m_users.insert(lineOf(name,
                              entry->pw_uid,
                              entry->pw_gid,
                              QString::fromUtf8(entry->pw_gecos),
                              QString::fromLatin1(entry->pw_dir),
                              QString::fromLatin1(entry->pw_shell)));
        names.append(name);
        primaryMembers[entry->pw_gid].append(name);
    }
    m_userLists.insert(names);
    for (auto members = primaryMembers.begin(); members != primaryMembers.end(); ++members) {
        m_primaryMembers[members.key()].insert(members.value());
    }
}

void PossibleAccounts::addGroups(const QByteArray &groups)
{
    const File file = opened(groups);
    QStringList names;
    while (const group *entry = fgetgrent(file.get())) {
        const QString name = QString::fromLatin1(entry->gr_name);
        QStringList members;
        for (char **member = entry->gr_mem; *member; ++member) {
            members.append(QString::fromLatin1(*member));
        }
        names.append(name);
        m_members[keyOf(name, entry->gr_gid)].insert(members);
    }
    m_groupLists.insert(names);
}

bool PossibleAccounts::canBePrimary(uint gid, const QStringList &members) const
{
    return members.isEmpty() || m_primaryMembers.value(gid).contains(members);
}

bool PossibleAccounts::canBe(const GroupInfo &group) const
{
    if (group == GroupInfo()) {
        return true;
    }
    QSet<QStringList> primaryMembers = m_primaryMembers.value(group.gid());
    primaryMembers.insert({});
    const QSet<QStringList> members = m_members.value(keyOf(group.name(), group.gid()));
    return std::any_of(members.begin(), members.end(), [&](const QStringList &explicitMembers) {
        return std::any_of(primaryMembers.begin(), primaryMembers.end(), [&](const QStringList &more) {
            QStringList all = explicitMembers + more;
            all.removeDuplicates();
            return all == group.users();
        });
    });
}

bool PossibleAccounts::canBe(const UserInfo &user) const
{
    const QString line = lineOf(user.name(), user.uid(), user.gid(), user.gecos(), user.home(), user.shell());
    if (!m_users.contains(line)) {
        return user.isEmpty() && user.groups().isEmpty() && user.primaryGroup() == GroupInfo();
    }
    const QList<GroupInfo> &groups = user.groups();
    return canBe(user.primaryGroup())
        && std::all_of(groups.begin(), groups.end(), [this](const GroupInfo &group) { return canBe(group); })
        && (!user.isOrmelAdmin() || user.groupNames().contains(QStringLiteral("ormel-admin")));
}

bool PossibleAccounts::canBe(const QList<UserInfo> &users) const
{
    return m_userLists.contains(namesOf(users))
        && std::all_of(users.begin(), users.end(), [this](const UserInfo &user) { return canBe(user); });
}

bool PossibleAccounts::canBe(const QList<GroupInfo> &groups) const
{
    return m_groupLists.contains(namesOf(groups))
        && std::all_of(groups.begin(), groups.end(), [this](const GroupInfo &group) { return canBe(group); });
}
