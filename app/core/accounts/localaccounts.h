/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LOCALACCOUNTS_H
#define LOCALACCOUNTS_H

#include "accountrecords.h"

/** The contents of the account files, in their order, and the files that could not be read. */
namespace LocalAccounts
{
QVector<GroupRecord> groups(QVector<UnreadableFile> &unreadable);

/** Asks the name service for the groups of each user, which takes long with many accounts. */
QVector<UserRecord> users(QVector<UnreadableFile> &unreadable);

/** Whether there is a group whose members are administrators. */
bool hasAdministratorsGroup();
}

#endif
