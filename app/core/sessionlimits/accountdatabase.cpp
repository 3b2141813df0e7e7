/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountdatabase.h"

#include <QFile>

#include <cstdio>
#include <memory>

#include <grp.h>
#include <pwd.h>

namespace
{
struct Closer {
    void operator()(FILE *file) const
    {
        fclose(file);
    }
};

using FilePointer = std::unique_ptr<FILE, Closer>;

FilePointer openFile(const char *path)
{
    return FilePointer(fopen(path, "re"));
}

/** The sources of @p database in /etc/nsswitch.conf; empty when it is not named there. */
QList<QByteArray> sourcesOf(const QByteArray &database)
{
    QFile file(QStringLiteral("/etc/nsswitch.conf"));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        const QByteArray entry = line.left(line.indexOf('#')).simplified();
        if (entry.startsWith(database + ':')) {
            return entry.mid(database.size() + 1).trimmed().split(' ');
        }
    }
    return {};
}

bool hasFilesOnly()
{
    const QList<QByteArray> files{"files"};
    const QList<QByteArray> initial = sourcesOf("initgroups");
    return sourcesOf("group") == files && (initial.isEmpty() || initial == files);
}

QVector<quint32> askForGroups(const QByteArray &user, quint32 gid)
{
    constexpr int expected = 64;
    int count = expected;
    QVector<gid_t> groups(count);
    while (getgrouplist(user.constData(), gid, groups.data(), &count) < 0) {
        groups.resize(qMax(count, 2 * groups.size()));
        count = groups.size();
    }
    groups.resize(count);
    return groups;
}
}

PamLimits::AccountDatabase::AccountDatabase()
    : m_hasFilesOnly(hasFilesOnly())
{
    if (m_hasFilesOnly) {
        readGroups();
    }
}

void PamLimits::AccountDatabase::readGroups()
{
    const FilePointer file = openFile("/etc/group");
    while (const group *entry = file ? fgetgrent(file.get()) : nullptr) {
        const QByteArray name(entry->gr_name);
        if (!m_gids.contains(name)) {
            m_gids.insert(name, entry->gr_gid);
        }
        m_known.insert(entry->gr_gid);
        for (char **member = entry->gr_mem; *member; ++member) {
            m_memberships[*member].append(entry->gr_gid);
        }
    }
}

std::optional<PamLimits::Account> PamLimits::AccountDatabase::find(const QByteArray &name) const
{
    const passwd *entry = getpwnam(name.constData());
    if (!entry) {
        return {};
    }
    Account account{entry->pw_name, entry->pw_uid, entry->pw_gid, {}};
    addGroups(account);
    return account;
}

QVector<PamLimits::Account> PamLimits::AccountDatabase::all() const
{
    QVector<Account> accounts = allWithoutGroups();
    for (Account &account : accounts) {
        addGroups(account);
    }
    return accounts;
}

QVector<PamLimits::Account> PamLimits::AccountDatabase::allWithoutGroups() const
{
    QVector<Account> accounts;
    QSet<QByteArray> names;
    const FilePointer file = openFile("/etc/passwd");
    while (const passwd *entry = file ? fgetpwent(file.get()) : nullptr) {
        const QByteArray name(entry->pw_name);
        if (!names.contains(name)) {
            names.insert(name);
            accounts.append({name, entry->pw_uid, entry->pw_gid, {}});
        }
    }
    return accounts;
}

void PamLimits::AccountDatabase::addGroups(Account &account) const
{
    account.groups = groupsOf(account.name, account.gid);
}

std::optional<quint32> PamLimits::AccountDatabase::gidOf(const QByteArray &group) const
{
    if (m_hasFilesOnly) {
        const auto known = m_gids.constFind(group);
        return known == m_gids.constEnd() ? std::nullopt : std::make_optional(*known);
    }
    const ::group *entry = getgrnam(group.constData());
    return entry ? std::make_optional(entry->gr_gid) : std::nullopt;
}

bool PamLimits::AccountDatabase::hasGroup(quint32 gid) const
{
    return m_hasFilesOnly ? m_known.contains(gid) : getgrgid(gid) != nullptr;
}

QVector<quint32> PamLimits::AccountDatabase::groupsOf(const QByteArray &user, quint32 gid) const
{
    if (m_hasFilesOnly) {
        return QVector<quint32>{gid} + m_memberships.value(user);
    }
    return askForGroups(user, gid);
}
