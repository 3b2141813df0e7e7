/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountreader.h"

#include "accountpackets.h"
#include "writeaccounts.h"

#include <KLocalizedString>

namespace
{
QString failureText(PacketProcess::Failure failure, const QString &program)
{
    switch (failure) {
    case PacketProcess::Failure::NotStarted:
        return i18n("The accounts could not be read: '%1' cannot be started.", program);
    case PacketProcess::Failure::NotUnderstood:
        return i18n("The accounts could not be read: the program that reads them sends something unexpected.");
    case PacketProcess::Failure::EndedEarly:
        return i18n("The accounts could not be read: the program that reads them has ended early.");
    case PacketProcess::Failure::Silent:
        break;
    }
    return i18n("The accounts could not be read: the program that reads them does not answer.");
}
}

PacketSource AccountReader::ownProgram()
{
    return PacketSource::ownProgram(writeAccountsCommand());
}

AccountReader::AccountReader(const PacketSource &source, QObject *parent)
    : QObject(parent)
    , m_process(
          source, accountsHello(), [this](quint8 type, Unpacker &unpack) { return take(type, unpack); }, this)
{
    connect(&m_process, &PacketProcess::failed, this, [this](PacketProcess::Failure failure) {
        Q_EMIT failed(failureText(failure, m_process.program()));
    });
}

void AccountReader::start()
{
    m_groups.clear();
    m_users.clear();
    m_unreadable.clear();
    m_unreadableBeforeUsers = 0;
    m_process.start();
}

void AccountReader::cancel()
{
    m_process.cancel();
}

bool AccountReader::isReading() const
{
    return m_process.isRunning();
}

bool AccountReader::take(quint8 type, Unpacker &unpack)
{
    switch (type) {
    case AccountPacket::Unreadable:
        return unpack.appendTo(m_unreadable);
    case AccountPacket::Groups:
        return unpack.appendTo(m_groups);
    case AccountPacket::GroupsEnd:
        return endGroups(unpack);
    case AccountPacket::Users:
        return unpack.appendTo(m_users);
    case AccountPacket::UsersEnd:
        return endUsers(unpack);
    default:
        return false;
    }
}

bool AccountReader::endGroups(Unpacker &unpack)
{
    bool hasAdministratorsGroup = false;
    unpack(hasAdministratorsGroup);
    if (!unpack.isDone()) {
        return false;
    }
    m_unreadableBeforeUsers = m_unreadable.size();
    if (m_unreadable.isEmpty()) {
        Q_EMIT administratorsGroupFound(hasAdministratorsGroup);
        Q_EMIT groupsRead(std::exchange(m_groups, {}));
    }
    return true;
}

bool AccountReader::endUsers(const Unpacker &unpack)
{
    if (!unpack.isDone()) {
        return false;
    }
    cancel();
    if (m_unreadable.size() == m_unreadableBeforeUsers) {
        Q_EMIT usersRead(std::exchange(m_users, {}));
    }
    Q_EMIT finished(m_unreadable);
    return true;
}
