/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTDATABASE_H
#define ACCOUNTDATABASE_H

#include "sessionaccount.h"

#include <QHash>
#include <QSet>

#include <optional>

struct group;

namespace PamLimits
{
/**
 * Accounts as the name service knows them. It is asked each time, which takes long for many accounts. After read()
 * this holds for groups only if /etc/group is not their only source.
 *
 * All may be used in any thread, except for all(), which is for one thread at a time.
 */
class AccountDatabase
{
public:
    /** Reads /etc/nsswitch.conf and, if it is the only source of groups, /etc/group. */
    static AccountDatabase read();

    /** Finds an account by its name; none when the name service knows none. */
    std::optional<Account> find(const QByteArray &name) const;

    /** Whether the name service knows a user who is not in /etc/passwd, for a name that is not there. */
    bool hasUserElsewhere(const QByteArray &name) const;

    /** All accounts of /etc/passwd, in its order. */
    QVector<Account> all() const;

    /** The gid of a group; none when there is no such group. */
    std::optional<quint32> gidOf(const QByteArray &group) const;

    bool hasGroup(quint32 gid) const;

private:
    void readGroups();
    void addGroup(const ::group &entry);
    QVector<Account> allWithoutGroups() const;
    void addGroups(Account &account) const;
    QVector<quint32> groupsOf(const QByteArray &user, quint32 gid) const;

    bool m_hasUsersInFileOnly = false;
    bool m_hasGroupsInFileOnly = false;
    QHash<QByteArray, quint32> m_gids;
    QSet<quint32> m_known;
    QHash<QByteArray, QVector<quint32>> m_memberships;
};
}

#endif
