/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTSTORE_H
#define ACCOUNTSTORE_H

#include "limitschecker.h"

#include <LimitsParser>

#include <QHash>
#include <QObject>

class GroupInfo;
class GroupListModel;
class UserListModel;

/**
 * What the pages show: the accounts and limits of the machine as they were last read.
 *
 * A list model reads the accounts as soon as it exists. There is none before readUsers() and
 * readGroups() are first called, so that a window can be painted before.
 */
class AccountStore : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    void readLimits();
    void readUsers();
    void readGroups();

    /** The users; null before they are first read. */
    UserListModel *users() const;

    /** The groups; null before they are first read. */
    GroupListModel *groups() const;

    /**
     * All users once more, for a list that gets the row of a new account. The first call reads them,
     * later ones do not.
     */
    UserListModel *usersBesideNewOne();

    /** The logins of the users whose primary group this is. */
    QStringList primaryMembers(const GroupInfo &group) const;

    const LimitsParser &limits() const;

    /** What is odd about the limits files. */
    const QList<LimitsFinding> &limitsFindings() const;

    /** Why account files cannot be read, a line for each that cannot; empty when all can. */
    const QString &accountsError() const;

    /** Why not all limits files could be read; empty when they could. */
    const QString &limitsError() const;

Q_SIGNALS:
    void limitsRead();
    void usersRead();
    void groupsRead();

private:
    UserListModel *m_users = nullptr;
    GroupListModel *m_groups = nullptr;
    UserListModel *m_usersBesideNewOne = nullptr;
    QHash<uint, QStringList> m_primaryMembers;
    LimitsParser m_limits;
    QList<LimitsFinding> m_limitsFindings;
    QString m_accountsError;
    QString m_limitsError;
};

#endif
