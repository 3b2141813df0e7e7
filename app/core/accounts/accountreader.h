/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTREADER_H
#define ACCOUNTREADER_H

#include "accountrecords.h"
#include "packetprocess.h"

/**
 * Reads the accounts of the machine in a process of its own, so that neither slow disks and name services nor
 * many accounts keep the caller waiting. The event loop takes in the records piece by piece.
 */
class AccountReader : public QObject
{
    Q_OBJECT

public:
    /** @param source a program that does what writeAccounts() does */
    explicit AccountReader(const PacketSource &source, QObject *parent = nullptr);

    /** This program. */
    static PacketSource ownProgram();

    /** Starts reading, or starts over. */
    void start();

    /** Stops reading. No more signals follow. */
    void cancel();

    bool isReading() const;

Q_SIGNALS:
    /** In the order of the file. Not reported when the file could not be read. */
    void groupsRead(const QVector<GroupRecord> &groups);
    void administratorsGroupFound(bool found);
    void usersRead(const QVector<UserRecord> &users);

    /** Reading has ended, and everything but @p unreadable was read. */
    void finished(const QVector<UnreadableFile> &unreadable);

    /** Reading has ended early; @p message is a sentence that says why. */
    void failed(const QString &message);

private:
    bool take(quint8 type, Unpacker &unpack);
    bool endGroups(Unpacker &unpack);
    bool endUsers(const Unpacker &unpack);

    PacketProcess m_process;
    QVector<GroupRecord> m_groups;
    QVector<UserRecord> m_users;
    QVector<UnreadableFile> m_unreadable;
    /** How many files were unreadable when the groups were complete. */
    int m_unreadableBeforeUsers = 0;
};

#endif
