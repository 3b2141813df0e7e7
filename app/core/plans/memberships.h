/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef MEMBERSHIPS_H
#define MEMBERSHIPS_H

#include "groupmembers.h"
#include "plan.h"

/**
 * Plans that change who is in which group. Names are those of the library's records, in which each character
 * stands for a byte.
 */
namespace Memberships
{
/** Makes @p user a member of the groups @p wanted and of no other of @p groups, which are all local ones. */
Plan changeGroups(const QString &user, const QStringList &wanted, const QList<GroupMembers> &groups);

/**
 * Makes the users @p wanted the members of @p group. Members that are not among @p accounts stay: nobody was
 * asked about them.
 */
Plan changeMembers(const GroupMembers &group, const QStringList &wanted, const QStringList &accounts);

/** The users of /etc/passwd. */
QStringList localUsers();

/** Whether usermod and useradd take @p group in a list as one name, and not as several names or a gid. */
bool fitsInList(const QByteArray &group);

/** Whether the tools know a user or group of that name; if not, says so in @p plan. */
bool isKnownToTools(const QString &name, Plan &plan);

/** Whether @p user can be named in the line of a group; if not, says why in @p plan. */
bool canBeMember(const QString &user, Plan &plan);
}

#endif
