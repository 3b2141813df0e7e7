/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CHANGINGFILES_H
#define CHANGINGFILES_H

#include <GroupInfo>
#include <UserInfo>

#include <QByteArrayList>
#include <QSet>

/**
 * All possible results of reading account files that change: each read sees the beginning of one of the
 * versions, truncated anywhere.
 */
class PossibleAccounts
{
public:
    PossibleAccounts(const QByteArrayList &passwdVersions, const QByteArrayList &groupVersions);

    bool canBe(const UserInfo &user) const;
    bool canBe(const GroupInfo &group) const;
    bool canBe(const QList<UserInfo> &users) const;
    bool canBe(const QList<GroupInfo> &groups) const;
    bool canBePrimary(uint gid, const QStringList &members) const;

private:
    void addPasswd(const QByteArray &passwd);
    void addGroups(const QByteArray &groups);

    QSet<QString> m_users; ///< the fields of a line
    QSet<QStringList> m_userLists; ///< their names
    QSet<QStringList> m_groupLists;
    QHash<uint, QSet<QStringList>> m_primaryMembers;
    QHash<QString, QSet<QStringList>> m_members; ///< of a name and a gid
};

#endif
