/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTPACKETS_H
#define ACCOUNTPACKETS_H

#include "packetstream.h"

/** What the process that reads the accounts sends, in this order, after its hello. */
namespace AccountPacket
{
enum Type : quint8 {
    Hello = HelloPacket,
    Alive = AlivePacket,
    Unreadable, ///< UnreadableFiles: why records are missing before the next end
    Groups, ///< GroupRecords, in the order of the file
    GroupsEnd, ///< whether there is an administrators group
    Users, ///< UserRecords, in the order of the file
    UsersEnd, ///< nothing; all was read
};
}

#endif
