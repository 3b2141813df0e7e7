/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountreader.h"

#include "accountpackets.h"
#include "writeaccounts.h"

#include <KLocalizedString>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

namespace
{
/** How long packets are taken before other events have their turn. In milliseconds. */
constexpr int turn = 5;

/** How long an ended process may take to go. In milliseconds. */
constexpr int farewell = 1000;
}

AccountSource AccountSource::ownProgram()
{
    return {QCoreApplication::applicationDirPath() + QLatin1String("/ormel-users"), {writeAccountsCommand()}};
}

AccountReader::AccountReader(AccountSource source, QObject *parent)
    : QObject(parent)
    , m_source(std::move(source))
{
    m_silence.setSingleShot(true);
    m_silence.setInterval(m_source.patience);
    m_later.setSingleShot(true);
    m_later.setInterval(0);
    connect(&m_later, &QTimer::timeout, this, &AccountReader::takePackets);
    connect(&m_silence, &QTimer::timeout, this, &AccountReader::checkSilence);
}

AccountReader::~AccountReader()
{
    cancel();
    const auto processes = findChildren<QProcess *>();
    for (QProcess *process : processes) {
        if (process->state() != QProcess::NotRunning && !process->waitForFinished(farewell)) {
            process->setParent(nullptr); // its destructor would wait for longer
        }
    }
}

void AccountReader::start()
{
    cancel();
    m_stream = PacketStream();
    m_unpack = Unpacker();
    m_greeted = false;
    m_groups.clear();
    m_users.clear();
    m_unreadable.clear();
    m_unreadableBeforeUsers = 0;
    m_process = new QProcess(this);
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardErrorFile(QProcess::nullDevice());
    connect(m_process, &QProcess::readyReadStandardOutput, this, &AccountReader::receive);
    connect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, &AccountReader::receive);
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            fail(i18n("The accounts could not be read: '%1' cannot be started.", m_source.program));
        }
    });
    m_silence.start();
    m_process->start(m_source.program, m_source.arguments, QIODevice::ReadOnly);
}

void AccountReader::cancel()
{
    m_silence.stop();
    m_later.stop();
    if (m_process) {
        release();
    }
}

bool AccountReader::isReading() const
{
    return m_process;
}

/** Ends the process without waiting for it: one that waits for a disk may not end soon. */
void AccountReader::release()
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

void AccountReader::receive()
{
    m_stream.append(m_process->readAllStandardOutput());
    m_silence.start();
    if (!m_later.isActive()) {
        takePackets();
    }
}

void AccountReader::takePackets()
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
            fail(i18n("The accounts could not be read: the program that reads them sends something else."));
        }
    }
    if (m_process) {
        m_later.start();
    }
}

bool AccountReader::take(const Packet &packet)
{
    const auto type = static_cast<AccountPacket>(packet.type);
    m_unpack.begin(packet.data);
    if (!m_greeted) {
        QString hello;
        m_unpack(hello);
        m_greeted = type == AccountPacket::Hello && isUnpacked() && hello == accountsHello();
        return m_greeted;
    }
    switch (type) {
    case AccountPacket::Alive:
        return isUnpacked();
    case AccountPacket::Unreadable:
        return unpackInto(m_unreadable);
    case AccountPacket::Groups:
        return unpackInto(m_groups);
    case AccountPacket::GroupsEnd:
        return endGroups();
    case AccountPacket::Users:
        return unpackInto(m_users);
    case AccountPacket::UsersEnd:
        return endUsers();
    case AccountPacket::Hello:
        break;
    }
    return false;
}

bool AccountReader::isUnpacked() const
{
    return m_unpack.isValid() && m_unpack.atEnd();
}

template<typename Record>
bool AccountReader::unpackInto(QVector<Record> &records)
{
    while (!m_unpack.atEnd()) {
        Record record;
        std::apply(m_unpack, Record::fields(record));
        records.append(record);
    }
    return m_unpack.isValid();
}

bool AccountReader::endGroups()
{
    bool hasAdministratorsGroup = false;
    m_unpack(hasAdministratorsGroup);
    if (!isUnpacked()) {
        return false;
    }
    m_unreadableBeforeUsers = m_unreadable.size();
    if (m_unreadable.isEmpty()) {
        Q_EMIT administratorsGroupFound(hasAdministratorsGroup);
        Q_EMIT groupsRead(std::exchange(m_groups, {}));
    }
    return true;
}

bool AccountReader::endUsers()
{
    if (!isUnpacked()) {
        return false;
    }
    cancel();
    if (m_unreadable.size() == m_unreadableBeforeUsers) {
        Q_EMIT usersRead(std::exchange(m_users, {}));
    }
    Q_EMIT finished(m_unreadable);
    return true;
}

void AccountReader::endIfProcessHasEnded()
{
    if (m_process->state() == QProcess::NotRunning) {
        fail(i18n("The accounts could not be read: the program that reads them has ended early."));
    }
}

void AccountReader::checkSilence()
{
    // Nobody may have looked for a while.
    if (!m_process->waitForReadyRead(0)) {
        fail(i18n("The accounts could not be read: the program that reads them does not answer."));
    }
}

void AccountReader::fail(const QString &message)
{
    cancel();
    Q_EMIT failed(message);
}
