/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROBLEMREADER_H
#define PROBLEMREADER_H

#include "machinecheck.h"
#include "packetprocess.h"

/** Checks the machine in a process of its own. This may take long, but the caller never waits. */
class ProblemReader : public QObject
{
    Q_OBJECT

public:
    /** @param source a program that does what writeProblems() does */
    explicit ProblemReader(const PacketSource &source, QObject *parent = nullptr);

    /** This program. */
    static PacketSource ownProgram();

    /** Starts checking, or starts over. */
    void start();

    bool isChecking() const;

Q_SIGNALS:
    void finished(const MachineCheck &check);

    /** Checking has ended early; @p message is a sentence that says why. */
    void failed(const QString &message);

private:
    bool take(quint8 type, Unpacker &unpack);
    bool takeProblems(Unpacker &unpack);
    bool takeUnreadFiles(Unpacker &unpack);
    bool end(const Unpacker &unpack);

    PacketProcess m_process;
    MachineCheck m_check;
};

#endif
