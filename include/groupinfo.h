/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GROUPINFO_H
#define GROUPINFO_H

#include "ormelusersqt_export.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <grp.h>

/**
 * @class GroupInfo groupinfo.h <GroupInfo>
 *
 * One group of the system's group database.
 *
 * The member list answers "who is in this group" in one place: it holds the
 * members that the group's own line names and, behind them, every account of
 * @c /etc/passwd whose primary group it is.
 *
 * @code
 * const GroupInfo staff = GroupInfo::getGroup(QStringLiteral("staff"));
 * if (!staff.isEmpty()) {
 *     qDebug() << staff.gid() << staff.users();
 * }
 * @endcode
 *
 * Records are values. They hold no handle to the system and change only through
 * reload(). Nothing is cached between calls: every lookup reads the databases as
 * they are at that moment. Lookups that find nothing return an empty record.
 *
 * When @c /etc/passwd cannot be opened, there is a warning and groups have no primary
 * members. Warnings are written untranslated to the logging category "default".
 *
 * The lookups use the C library's non-reentrant account functions: use them from
 * one thread at a time, together with those of UserInfo. They overwrite what those
 * functions returned before.
 *
 * @see UserInfo, GroupListModel
 */
class ORMELUSERSQT_EXPORT GroupInfo
{
public:
    /** An empty record: null name, no members, gid 0. */
    GroupInfo();

    /** @return the group name, decoded as Latin-1; null in an empty record. */
    const QString &name() const;

    /**
     * @return the login names of the members, decoded as Latin-1: the explicit members in the
     * order of the group line, then the accounts whose primary group it is, in the order of
     * @c /etc/passwd. A group that was looked up names each member once.
     */
    const QStringList &users() const;

    /** @return the group id; 0 in an empty record, but also for the superuser's group. */
    uint gid() const;

    /** @return whether the name has length 0, whatever the gid. */
    bool isEmpty() const;

    /** @return whether this is a system group: gid 999 or below, or 65534. */
    bool isSystem() const;

    /**
     * Asks the name service (@c getpwnam) for the account @p userName, encoded as Latin-1.
     *
     * @return whether this is the primary group of that account; false for an unknown
     * account and, without a lookup, for an empty record.
     *
     * Costs one account lookup on every call.
     */
    bool isPrimaryOf(const QString &userName) const;

    /** @return whether name, gid and member list are equal, the members in the same order. */
    bool operator==(const GroupInfo &other) const;
    /** @return the negation of operator==(). */
    bool operator!=(const GroupInfo &other) const;

    /**
     * Builds a record from @p entry alone: its name, gid and the members it names in their
     * order, duplicates kept. No primary members are added and no file is read.
     *
     * @param entry must not be null; its contents are copied
     */
    static GroupInfo getGroup(group *entry);

    /**
     * Looks a group up by name through the name service (@c getgrnam), @p name being encoded
     * as Latin-1, and completes it with the primary members from @c /etc/passwd.
     *
     * @return the record; an empty one, with a warning, when there is no such group.
     *
     * Costs one group lookup and one full read of @c /etc/passwd.
     */
    static GroupInfo getGroup(const QString &name);

    /**
     * Looks a group up by id through the name service (@c getgrgid); otherwise as getGroup()
     * by name. A literal 0 is ambiguous: write @c 0u.
     */
    static GroupInfo getGroup(uint gid);

    /**
     * Reads every group of the local file @c /etc/group (@c fgetgrent); groups that only
     * another name service knows are not in it.
     *
     * @return the groups in file order, each completed with its primary members; an empty
     * list, with a warning, when @c /etc/group cannot be opened.
     *
     * Costs one read of @c /etc/group and one of @c /etc/passwd.
     */
    static QList<GroupInfo> getGroups();

    /**
     * Reads @c /etc/passwd (@c fgetpwent) once.
     *
     * @return for every gid that is somebody's primary group, the login names of those
     * accounts in file order; an empty map, with a warning, when the file cannot be opened.
     *
     * Costs one read of @c /etc/passwd, whatever the number of groups.
     */
    static QHash<uint, QStringList> getPrimaryGroups();

    /**
     * Looks the group up again by its current name (@c getgrnam), completes it with the primary
     * members from @c /etc/passwd and takes over gid and members. The name never changes. When the
     * group is gone, a warning is written, and the record keeps its name with gid 0 and no members.
     *
     * Costs the same as getGroup() by name.
     */
    void reload();

private:
    friend class AccountLookup;

    QString m_name;
    QStringList m_users;
    uint m_gid = 0;
};

Q_DECLARE_TYPEINFO(GroupInfo, Q_MOVABLE_TYPE);

#endif
