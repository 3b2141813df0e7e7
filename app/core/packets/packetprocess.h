/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PACKETPROCESS_H
#define PACKETPROCESS_H

#include "packetstream.h"
#include "packing.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

class QProcess;

/** A program that writes packets to its standard output, and how long it may be silent. */
struct PacketSource {
    QString program;
    QStringList arguments;
    std::chrono::milliseconds patience = std::chrono::seconds(15);

    /** This program with a command, in a process of its own. */
    static PacketSource ownProgram(const QString &command);
};

/**
 * Runs a program that writes packets. The event loop takes in the packets piece by piece, so that the caller
 * never waits.
 */
class PacketProcess : public QObject
{
    Q_OBJECT

public:
    enum class Failure {
        NotStarted,
        NotUnderstood, ///< it sends something else
        EndedEarly,
        Silent,
    };

    /** Handles a packet; false when it is not understood. With the last one, call cancel(). */
    using Take = std::function<bool(quint8 type, Unpacker &unpack)>;

    /** @param hello the text that the program begins with */
    PacketProcess(PacketSource source, const QString &hello, Take take, QObject *parent = nullptr);

    /** Ends the program. */
    ~PacketProcess() override;

    /** Starts the program, or starts over. */
    void start();

    /** Ends the program. No more signals follow. */
    void cancel();

    bool isRunning() const;

    const QString &program() const;

Q_SIGNALS:
    void failed(PacketProcess::Failure failure);

private:
    void release();
    void receive();
    void takePackets();
    bool take(const Packet &packet);
    void endIfProcessHasEnded();
    void checkSilence();
    void fail(Failure failure);

    const PacketSource m_source;
    const QString m_hello;
    const Take m_take;
    QProcess *m_process = nullptr;
    QTimer m_silence;
    /** Handles the packets that were left for later. */
    QTimer m_later;
    PacketStream m_stream;
    Unpacker m_unpack;
    bool m_greeted = false;
};

#endif
