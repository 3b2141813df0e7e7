/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTPACKETS_H
#define ACCOUNTPACKETS_H

#include <QtGlobal>

/** What the process that reads the accounts sends, in this order. */
enum class AccountPacket : quint8 {
    Hello = 1, ///< a text: what the program is
    Alive, ///< nothing; between any two others
    Unreadable, ///< UnreadableFiles: why there is less than there should be before the next end
    Groups, ///< GroupRecords, in the order of the file
    GroupsEnd, ///< whether there is an administrators group
    Users, ///< UserRecords, in the order of the file
    UsersEnd, ///< nothing; all was read
};

#endif
