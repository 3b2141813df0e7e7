/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "packetwriter.h"

#include "packetstream.h"

#include <QFile>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <thread>

#include <unistd.h>

namespace
{
constexpr std::chrono::seconds beat(1);
}

/** Standard output, where packets are written from more than one thread. */
class PacketWriter::Output
{
public:
    Output()
    {
        m_file.open(STDOUT_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    /** When nobody reads any more, there is nothing left to do. */
    void write(quint8 type, const QByteArray &data = {})
    {
        const std::lock_guard lock(m_mutex);
        const QByteArray bytes = PacketStream::toBytes({type, data});
        if (m_file.write(bytes) != bytes.size()) {
            std::_Exit(EXIT_FAILURE);
        }
    }

private:
    QFile m_file;
    std::mutex m_mutex;
};

/** Sends signs of life while the C library is busy. */
class PacketWriter::Heart
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
            output.write(AlivePacket);
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_wakeUp;
    bool m_stopped = false;
    std::thread m_thread;
};

PacketWriter::PacketWriter(const QString &hello)
    : m_output(std::make_unique<Output>())
{
    send(HelloPacket, hello);
    m_heart = std::make_unique<Heart>(*m_output);
}

PacketWriter::~PacketWriter() = default;

void PacketWriter::write(quint8 type, const QByteArray &data)
{
    m_output->write(type, data);
}
