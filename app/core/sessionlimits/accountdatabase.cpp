/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountdatabase.h"

#include <QFile>

#include <cerrno>
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
        const QByteArray entry = file.readLine().split('#').constFirst().simplified();
        if (entry.startsWith(database + ':')) {
            return entry.mid(database.size() + 1).trimmed().split(' ');
        }
    }
    return {};
}

/** The C library finds no group by such a name. */
bool isNisEntry(const QByteArray &name)
{
    return name.startsWith('+') || name.startsWith('-');
}

bool isInFileOnly(const QByteArray &database)
{
    return sourcesOf(database) == QList<QByteArray>{"files"};
}

bool hasGroupsInFileOnly()
{
    return isInFileOnly("group") && (sourcesOf("initgroups").isEmpty() || isInFileOnly("initgroups"));
}

/** A buffer for one entry of the name service, which grows when an entry is larger. */
class EntryBuffer
{
public:
    /** Calls @p read until the buffer is large enough. Returns its result: 0 or an error. */
    template<typename Read>
    int fill(const Read &read)
    {
        int error = 0;
        while ((error = read(m_bytes.data(), size_t(m_bytes.size()))) == ERANGE) {
            m_bytes.resize(2 * m_bytes.size());
        }
        return error;
    }

private:
    QByteArray m_bytes = QByteArray(4096, '\0');
};

bool findUser(const QByteArray &name, EntryBuffer &buffer, passwd &entry)
{
    passwd *found = nullptr;
    buffer.fill([&](char *bytes, size_t size) { return getpwnam_r(name.constData(), &entry, bytes, size, &found); });
    return found != nullptr;
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

PamLimits::AccountDatabase PamLimits::AccountDatabase::read()
{
    AccountDatabase database;
    database.m_hasUsersInFileOnly = isInFileOnly("passwd");
    database.m_hasGroupsInFileOnly = hasGroupsInFileOnly();
    if (database.m_hasGroupsInFileOnly) {
        database.readGroups();
    }
    return database;
}

void PamLimits::AccountDatabase::readGroups()
{
    const FilePointer file = openFile("/etc/group");
    group entry = {};
    group *found = nullptr;
    EntryBuffer buffer;
    const auto read = [&](char *bytes, size_t size) { return fgetgrent_r(file.get(), &entry, bytes, size, &found); };
    while (file && buffer.fill(read) == 0) {
        addGroup(entry);
    }
}

void PamLimits::AccountDatabase::addGroup(const group &entry)
{
    const QByteArray name(entry.gr_name);
    if (!isNisEntry(name)) {
        m_gids.insert(name, m_gids.value(name, entry.gr_gid));
        m_known.insert(entry.gr_gid);
    }
    for (char **member = entry.gr_mem; *member; ++member) {
        m_memberships[*member].append(entry.gr_gid);
    }
}

std::optional<PamLimits::Account> PamLimits::AccountDatabase::find(const QByteArray &name) const
{
    EntryBuffer buffer;
    passwd entry = {};
    if (!findUser(name, buffer, entry)) {
        return {};
    }
    Account account{entry.pw_name, entry.pw_uid, entry.pw_gid, {}};
    addGroups(account);
    return account;
}

bool PamLimits::AccountDatabase::hasUserElsewhere(const QByteArray &name) const
{
    EntryBuffer buffer;
    passwd entry = {};
    return !m_hasUsersInFileOnly && findUser(name, buffer, entry);
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
    if (m_hasGroupsInFileOnly) {
        const auto known = m_gids.constFind(group);
        return known == m_gids.constEnd() ? std::nullopt : std::make_optional(*known);
    }
    ::group entry = {};
    ::group *found = nullptr;
    EntryBuffer().fill(
        [&](char *bytes, size_t size) { return getgrnam_r(group.constData(), &entry, bytes, size, &found); });
    return found ? std::make_optional(entry.gr_gid) : std::nullopt;
}

bool PamLimits::AccountDatabase::hasGroup(quint32 gid) const
{
    if (m_hasGroupsInFileOnly) {
        return m_known.contains(gid);
    }
    group entry = {};
    group *found = nullptr;
    EntryBuffer().fill([&](char *bytes, size_t size) { return getgrgid_r(gid, &entry, bytes, size, &found); });
    return found != nullptr;
}

QVector<quint32> PamLimits::AccountDatabase::groupsOf(const QByteArray &user, quint32 gid) const
{
    if (m_hasGroupsInFileOnly) {
        return QVector<quint32>{gid} + m_memberships.value(user);
    }
    return askForGroups(user, gid);
}
