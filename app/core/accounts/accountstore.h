/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTSTORE_H
#define ACCOUNTSTORE_H

#include "accountreader.h"
#include "accountrecords.h"
#include "filewatcher.h"
#include "sessionlimits.h"

#include <QFutureWatcher>
#include <QObject>
#include <QSet>
#include <QTime>

/**
 * What the pages show: the accounts and limits of the machine as they were last read. They are read again when
 * their files change. What was read before stays until new data has arrived, and also when reading fails.
 */
class AccountStore : public QObject
{
    Q_OBJECT

public:
    explicit AccountStore(QObject *parent = nullptr, const PacketSource &source = AccountReader::ownProgram());

    /** Starts reading everything, or starts over. */
    void read();

    /** Stops reading. What was read before stays. */
    void cancel();

    bool isReading() const;

    /** The users in the order of their file. */
    const QVector<UserRecord> &users() const;

    /** The groups in the order of their file. */
    const QVector<GroupRecord> &groups() const;

    /** The users that are new or have changed since they were read before. */
    const QSet<QString> &changedUsers() const;
    const QSet<QString> &changedGroups() const;

    /** Whether there is a group whose members are administrators. */
    bool hasAdministratorsGroup() const;

    /** When everything was last read; invalid when it never was. */
    QTime lastRead() const;

    /** Why the accounts could not be read last time; empty when they could. */
    const QString &accountsError() const;

    /** What pam_limits gives sessions. */
    const PamLimits::SessionLimits &limits() const;

    /** Why not all limits files could be read; empty when they could. */
    const QString &limitsError() const;

Q_SIGNALS:
    void started();
    void limitsRead();
    void groupsRead();
    void usersRead();

    /** Reading has ended: everything was read, something could not be read, or it was cancelled. */
    void ended();

private:
    void readWhenIdle();
    void readLimits();
    void setLimits();
    void setGroups(const QVector<GroupRecord> &groups);
    void setUsers(const QVector<UserRecord> &users);
    void endAccounts(const QString &error);
    void endWhenAllIsRead();

    AccountReader m_reader;
    QFutureWatcher<PamLimits::SessionLimits> m_limitsReader;
    FileWatcher m_accountFiles;
    FileWatcher m_limitsFiles;
    QVector<UserRecord> m_users;
    QVector<GroupRecord> m_groups;
    QSet<QString> m_changedUsers;
    QSet<QString> m_changedGroups;
    QTime m_lastRead;
    QString m_accountsError;
    PamLimits::SessionLimits m_limits;
    QString m_limitsError;
    bool m_hasAdministratorsGroup = true;
    bool m_hasUsers = false;
    bool m_hasGroups = false;
    /** Whether started() was emitted and ended() has not followed yet. */
    bool m_isReading = false;
    /** Whether the files have changed since reading began. */
    bool m_outdated = false;
};

#endif
