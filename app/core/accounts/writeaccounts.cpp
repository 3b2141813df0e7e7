/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "writeaccounts.h"

#include "accountpackets.h"
#include "localaccounts.h"
#include "packetwriter.h"

#include <cstdlib>

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
    PacketWriter writer(accountsHello());
    QVector<UnreadableFile> unreadable;
    writer.sendAll(AccountPacket::Groups, LocalAccounts::groups(unreadable));
    writer.sendAll(AccountPacket::Unreadable, std::exchange(unreadable, {}));
    writer.send(AccountPacket::GroupsEnd, LocalAccounts::hasAdministratorsGroup());
    writer.sendAll(AccountPacket::Users, LocalAccounts::users(unreadable));
    writer.sendAll(AccountPacket::Unreadable, unreadable);
    writer.send(AccountPacket::UsersEnd);
    return EXIT_SUCCESS;
}
