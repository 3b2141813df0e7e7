/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "writeaccounts.h"

#include "accountpackets.h"
#include "localaccounts.h"
#include "packetstream.h"
#include "packing.h"

#include <QFile>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <thread>

#include <unistd.h>

namespace
{
/** How many records are in a packet: few enough to be taken in without anybody noticing. */
constexpr int batchSize = 256;

constexpr std::chrono::seconds beat(1);

/** Standard output, where packets are written from more than one thread. */
class Output
{
public:
    Output()
    {
        m_file.open(STDOUT_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    /** When nobody reads any more there is nothing left to do. */
    void write(AccountPacket type, const QByteArray &data = {})
    {
        const std::lock_guard lock(m_mutex);
        const QByteArray bytes = PacketStream::toBytes({static_cast<quint8>(type), data});
        if (m_file.write(bytes) != bytes.size()) {
            std::_Exit(EXIT_FAILURE);
        }
    }

private:
    QFile m_file;
    std::mutex m_mutex;
};

/** Says that this process is alive while the C library is busy. */
class Heart
{
public:
    explicit Heart(Output &output)
        : m_thread([this, &output] { run(output); })
    {
    }

    ~Heart()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_stopped = true;
        }
        m_wakeUp.notify_all();
        m_thread.join();
    }

private:
    Q_DISABLE_COPY(Heart)

    void run(Output &output)
    {
        std::unique_lock lock(m_mutex);
        while (!m_wakeUp.wait_for(lock, beat, [this] { return m_stopped; })) {
            output.write(AccountPacket::Alive);
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_wakeUp;
    bool m_stopped = false;
    std::thread m_thread;
};

/** Packs records and writes them. */
class Sender
{
public:
    explicit Sender(Output &output)
        : m_output(output)
    {
    }

    template<typename... Values>
    void send(AccountPacket type, const Values &...values)
    {
        m_pack(values...);
        m_output.write(type, m_pack.take());
    }

    template<typename Record>
    void sendAll(AccountPacket type, const QVector<Record> &records)
    {
        for (int first = 0; first < records.size(); first += batchSize) {
            const int end = qMin(first + batchSize, records.size());
            for (int i = first; i < end; ++i) {
                std::apply(m_pack, Record::fields(records.at(i)));
            }
            m_output.write(type, m_pack.take());
        }
    }

private:
    Output &m_output;
    Packer m_pack;
};
}

QString writeAccountsCommand()
{
    return QStringLiteral("write-accounts");
}

QString accountsHello()
{
    return QStringLiteral("ormel-users accounts 1");
}

int writeAccounts()
{
    Output output;
    const Heart heart(output);
    Sender sender(output);
    sender.send(AccountPacket::Hello, accountsHello());
    QVector<UnreadableFile> unreadable;
    sender.sendAll(AccountPacket::Groups, LocalAccounts::groups(unreadable));
    sender.sendAll(AccountPacket::Unreadable, std::exchange(unreadable, {}));
    sender.send(AccountPacket::GroupsEnd, LocalAccounts::hasAdministratorsGroup());
    sender.sendAll(AccountPacket::Users, LocalAccounts::users(unreadable));
    sender.sendAll(AccountPacket::Unreadable, unreadable);
    sender.send(AccountPacket::UsersEnd);
    return EXIT_SUCCESS;
}
