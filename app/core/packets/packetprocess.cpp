/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "packetprocess.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

namespace
{
/** How long packets are handled before other events have their turn. In milliseconds. */
constexpr int turn = 5;

/** How long a killed process may take to end. In milliseconds. */
constexpr int farewell = 1000;
}

PacketSource PacketSource::ownProgram(const QString &command)
{
    return {QCoreApplication::applicationDirPath() + QLatin1String("/ormel-users"), {command}};
}

PacketProcess::PacketProcess(PacketSource source, const QString &hello, Take take, QObject *parent)
    : QObject(parent)
    , m_source(std::move(source))
    , m_hello(hello)
    , m_take(std::move(take))
{
    m_silence.setSingleShot(true);
    m_silence.setInterval(m_source.patience);
    m_later.setSingleShot(true);
    m_later.setInterval(0);
    connect(&m_later, &QTimer::timeout, this, &PacketProcess::takePackets);
    connect(&m_silence, &QTimer::timeout, this, &PacketProcess::checkSilence);
}

PacketProcess::~PacketProcess()
{
    cancel();
    const auto processes = findChildren<QProcess *>();
    for (QProcess *process : processes) {
        if (process->state() != QProcess::NotRunning && !process->waitForFinished(farewell)) {
            process->setParent(nullptr); // its destructor would wait for longer
        }
    }
}

void PacketProcess::start()
{
    cancel();
    m_stream = PacketStream();
    m_unpack = Unpacker();
    m_greeted = false;
    m_process = new QProcess(this);
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardErrorFile(QProcess::nullDevice());
    connect(m_process, &QProcess::readyReadStandardOutput, this, &PacketProcess::receive);
    connect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, &PacketProcess::receive);
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            fail(Failure::NotStarted);
        }
    });
    m_silence.start();
    m_process->start(m_source.program, m_source.arguments, QIODevice::ReadOnly);
}

void PacketProcess::cancel()
{
    m_silence.stop();
    m_later.stop();
    if (m_process) {
        release();
    }
}

bool PacketProcess::isRunning() const
{
    return m_process;
}

const QString &PacketProcess::program() const
{
    return m_source.program;
}

/** Ends the process without waiting for it: one that waits for a disk may not end soon. */
void PacketProcess::release()
{
    QProcess *process = std::exchange(m_process, nullptr);
    process->disconnect(this);
    if (process->state() == QProcess::NotRunning) {
        process->deleteLater();
        return;
    }
    connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), process, &QObject::deleteLater);
    process->kill();
}

void PacketProcess::receive()
{
    m_stream.append(m_process->readAllStandardOutput());
    m_silence.start();
    if (!m_later.isActive()) {
        takePackets();
    }
}

void PacketProcess::takePackets()
{
    QElapsedTimer time;
    time.start();
    while (m_process && time.elapsed() < turn) {
        const std::optional<Packet> packet = m_stream.take();
        if (!packet && !m_stream.isBroken()) {
            endIfProcessHasEnded();
            return;
        }
        if (!packet || !take(*packet)) {
            fail(Failure::NotUnderstood);
        }
    }
    if (m_process) {
        m_later.start();
    }
}

bool PacketProcess::take(const Packet &packet)
{
    m_unpack.begin(packet.data);
    if (!m_greeted) {
        QString hello;
        m_unpack(hello);
        m_greeted = packet.type == HelloPacket && m_unpack.isDone() && hello == m_hello;
        return m_greeted;
    }
    return packet.type == AlivePacket ? m_unpack.isDone() : m_take(packet.type, m_unpack);
}

void PacketProcess::endIfProcessHasEnded()
{
    if (m_process->state() == QProcess::NotRunning) {
        fail(Failure::EndedEarly);
    }
}

void PacketProcess::checkSilence()
{
    // There may be output that the busy event loop has not read yet.
    if (!m_process->waitForReadyRead(0)) {
        fail(Failure::Silent);
    }
}

void PacketProcess::fail(Failure failure)
{
    cancel();
    Q_EMIT failed(failure);
}
