/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTREADER_H
#define ACCOUNTREADER_H

#include "accountrecords.h"
#include "packetstream.h"
#include "packing.h"

#include <QObject>
#include <QTimer>

#include <chrono>

class QProcess;

/** A program that writes the packets of writeaccounts.h, and how long it may say nothing. */
struct AccountSource {
    QString program;
    QStringList arguments;
    std::chrono::milliseconds patience = std::chrono::seconds(15);

    /** This program, in a process of its own. */
    static AccountSource ownProgram();
};

/**
 * Reads the accounts of the machine in a process of its own, so that neither slow disks and name services
 * nor many accounts keep the caller waiting. What has arrived is taken in piece by piece from the event loop.
 */
class AccountReader : public QObject
{
    Q_OBJECT

public:
    explicit AccountReader(AccountSource source, QObject *parent = nullptr);
    ~AccountReader() override;

    /** Starts to read; from the beginning when that is going on already. */
    void start();

    /** Stops reading. Nothing more is reported. */
    void cancel();

    bool isReading() const;

Q_SIGNALS:
    /** In the order of the file. Not reported when the file could not be read. */
    void groupsRead(const QVector<GroupRecord> &groups);
    void administratorsGroupFound(bool found);
    void usersRead(const QVector<UserRecord> &users);

    /** Reading has ended, and everything but @p unreadable was read. */
    void finished(const QVector<UnreadableFile> &unreadable);

    /** Reading has ended early, for the reason that @p message tells in a sentence. */
    void failed(const QString &message);

private:
    void release();
    void receive();
    void takePackets();
    bool take(const Packet &packet);
    bool isUnpacked() const;
    template<typename Record>
    bool unpackInto(QVector<Record> &records);
    bool endGroups();
    bool endUsers();
    void endIfProcessHasEnded();
    void checkSilence();
    void fail(const QString &message);

    const AccountSource m_source;
    QProcess *m_process = nullptr;
    QTimer m_silence;
    /** Takes the packets that were left for later. */
    QTimer m_later;
    PacketStream m_stream;
    Unpacker m_unpack;
    bool m_greeted = false;
    QVector<GroupRecord> m_groups;
    QVector<UserRecord> m_users;
    QVector<UnreadableFile> m_unreadable;
    /** How many files were unreadable when the groups were complete. */
    int m_unreadableBeforeUsers = 0;
};

#endif
