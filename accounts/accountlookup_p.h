/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTLOOKUP_P_H
#define ACCOUNTLOOKUP_P_H

#include "groupinfo.h"
#include "userinfo.h"

#include <QByteArray>
#include <QHash>
#include <QSet>

#include <optional>
#include <vector>

#include <sys/types.h>

/**
 * The account lookups of one public call.
 *
 * Every public call makes a lookup of its own and drops it on return. In between, the account
 * databases count as unchanged: /etc/passwd is read at most once for the primary members, and
 * the C library is asked for a group once. Failures are remembered like results, but they are
 * reported each time. Records share their strings and member lists.
 */
class AccountLookup
{
public:
    using PrimaryGroups = QHash<uint, QStringList>;

    UserInfo user(const passwd *entry);

    /** Sets everything but the name of @p user, whose primary group is called @p primaryGroupName. */
    void fill(UserInfo &user, const passwd *entry, const QString &primaryGroupName);

    QList<GroupInfo> groupsOf(const passwd *entry);

    /** The name of the group @p gid, or null when there is none; valid until the next lookup. */
    const QString *groupName(gid_t gid);

    /** The group with its primary members; an empty record, with a warning, when there is none. */
    GroupInfo group(const QString &name);
    GroupInfo group(gid_t gid);

    /** The record of @p entry with its primary members added. */
    GroupInfo completed(const ::group *entry);

    /** The record of @p entry alone. */
    GroupInfo record(const ::group *entry);

    /** Reads the primary members of all groups, with a warning when they cannot be read. */
    void preparePrimaryMembers();

    /** Every primary group with its members; empty, with a warning, when they cannot be read. */
    PrimaryGroups primaryGroups();

private:
    /** An account of /etc/passwd; most are never asked for, so its name is not yet decoded. */
    struct PrimaryMember {
        gid_t gid;
        int name; ///< where it begins in m_primaryMemberNames
    };

    static bool hasLowerGid(const PrimaryMember &member, const PrimaryMember &other)
    {
        return member.gid < other.gid;
    }

    void readPrimaryMembers();
    const char *nameOf(const PrimaryMember &member) const;
    void warnIfPrimaryGroupsUnreadable() const;
    QString text(const char *latin1);

    enum class Passwd { NotRead, Read, Unreadable };

    Passwd m_passwd = Passwd::NotRead;
    std::vector<PrimaryMember> m_primaryMembers; ///< by gid, and then in the order of the file
    QByteArray m_primaryMemberNames; ///< each ends with a null character
    QHash<gid_t, std::optional<QString>> m_groupNames;
    QHash<QString, std::optional<GroupInfo>> m_groups;
    QSet<QString> m_texts;
};

#endif
