/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERINFO_H
#define USERINFO_H

#include "groupinfo.h"
#include "ormelusersqt_export.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <pwd.h>

/**
 * @class UserInfo userinfo.h <UserInfo>
 *
 * One user account of the system's password database, with its groups.
 *
 * @code
 * const QList<UserInfo> users = UserInfo::getUsers();
 * for (const UserInfo &user : users) {
 *     qDebug() << user.name() << user.uid() << user.groupNames();
 * }
 * @endcode
 *
 * Records are values. They hold no handle to the system and change only through
 * reload(). Nothing is cached between calls: every lookup reads the databases as
 * they are at that moment. Within one call, and so within one getUsers() for all its
 * users, @c /etc/passwd is read at most once for the primary members and each group is
 * looked up once, and the records share their strings and member lists.
 *
 * Lookups that find no account return an empty record without a message. While a record is
 * built, each group that cannot be found causes the warning of GroupInfo, and so does each group
 * when @c /etc/passwd cannot be opened. A system without the administrators group @c ormel-admin
 * gets one warning for each record. A tool can drop them with a message handler, or count them
 * there and show one for all:
 *
 * @code
 * static QtMessageHandler previous = nullptr;
 * previous = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &text) {
 *     if (text != QLatin1String("GroupInfo: unable to find group entry by name: ormel-admin")) {
 *         previous(type, context, text);
 *     }
 * });
 * @endcode
 *
 * The lookups use the C library's non-reentrant account functions: use them from
 * one thread at a time, together with those of GroupInfo. They overwrite what those
 * functions returned before: an entry that was passed in holds another account afterwards.
 *
 * @see GroupInfo, UserListModel
 */
class ORMELUSERSQT_EXPORT UserInfo
{
public:
    /** An empty record: null strings, no groups, uid and gid 0, no administrator. */
    UserInfo();

    /** @return the login name, decoded as Latin-1; null in an empty record. */
    const QString &name() const;

    /** @return the GECOS field (full name and contact data), decoded as UTF-8. */
    const QString &gecos() const;

    /** @return the home directory, decoded as Latin-1: one character for each byte. */
    const QString &home() const;

    /** @return the login shell, decoded as Latin-1. */
    const QString &shell() const;

    /** @return every group of the account, the primary group included, as getUserGroups() orders them. */
    const QList<GroupInfo> &groups() const;

    /** @return the primary group; an empty record when the gid has no group. */
    const GroupInfo &primaryGroup() const;

    /** @return the user id; 0 in an empty record, but also for the superuser. */
    uint uid() const;

    /** @return the primary group's id, whether or not there is such a group. */
    uint gid() const;

    /**
     * @return whether the account was a member of the administrators group @c ormel-admin when
     * the record was built, through a membership or as its primary group.
     */
    bool isOrmelAdmin() const;

    /** @return whether the name has length 0, whatever the uid. */
    bool isEmpty() const;

    /** @return whether this is a system account: uid 999 or below, or 65534. */
    bool isSystem() const;

    /** @return the names of groups() in the same order, duplicates kept. Built on each call. */
    QStringList groupNames() const;

    /**
     * Builds the record of @p entry, looking up its groups.
     *
     * @param entry must not be null; its contents are copied before any other account is
     * read, so the C library's static result may be passed
     *
     * Costs one @c getgrouplist, two lookups for each group of the account (@c getgrgid and
     * @c getgrnam), one for @c ormel-admin unless it is among them, and one read of @c /etc/passwd.
     */
    static UserInfo getUser(passwd *entry);

    /**
     * Looks an account up by name through the name service (@c getpwnam), @p name being
     * encoded as Latin-1.
     *
     * @return the record; an empty one, without a message, when there is no such account.
     *
     * Costs one account lookup and what getUser(passwd *) does.
     */
    static UserInfo getUser(const QString &name);

    /**
     * Looks an account up by id through the name service (@c getpwuid); otherwise as getUser()
     * by name. A literal 0 is ambiguous: write @c 0u.
     */
    static UserInfo getUser(uint uid);

    /**
     * Reads every account of the local file @c /etc/passwd (@c fgetpwent); accounts that only
     * another name service knows are not in it.
     *
     * @return the accounts in file order, unsorted and with any duplicates; an empty list,
     * with a warning, when the file cannot be opened.
     *
     * Costs two reads of @c /etc/passwd, one @c getgrouplist for each account and two lookups
     * for each group that occurs.
     */
    static QList<UserInfo> getUsers();

    /**
     * Lists the groups of the account @p entry, its primary group included, in the order of
     * @c getgrouplist. Ids without a group are left out.
     *
     * @param entry must not be null; it may be the C library's static result
     * @return the groups, each with all its members; an empty list when there is no memory for them.
     *
     * Costs one @c getgrouplist, two lookups for each group (@c getgrgid and @c getgrnam) and one
     * read of @c /etc/passwd.
     */
    static QList<GroupInfo> getUserGroups(passwd *entry);

    /**
     * Looks the account up again by its current name (@c getpwnam), and its primary group
     * (@c getgrgid), and takes over everything but the name.
     *
     * The account and its primary group must exist: unlike getUser(), this does not check, and
     * a missing one crashes. Call it for an account known to exist, for example right after
     * creating or changing it.
     *
     * Costs the same as getUser() by name.
     */
    void reload();

private:
    friend class AccountLookup;

    QString m_name;
    QString m_gecos;
    QString m_home;
    QString m_shell;
    QList<GroupInfo> m_groups;
    GroupInfo m_primaryGroup;
    uint m_uid = 0;
    uint m_gid = 0;
    bool m_ormelAdmin = false;
};

Q_DECLARE_TYPEINFO(UserInfo, Q_MOVABLE_TYPE);

#endif
