/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SESSIONACCOUNT_H
#define SESSIONACCOUNT_H

#include <QByteArray>
#include <QVector>

namespace PamLimits
{
/** What matters of an account when a session is opened. */
struct Account {
    QByteArray name;
    quint32 uid = 0;
    /** The primary group. */
    quint32 gid = 0;
    /** All groups, the primary one among them. */
    QVector<quint32> groups;
    /** Whether it stands for any member of a group. Then neither the uid nor the primary group is known. */
    bool isAnyMember = false;

    static Account memberOf(quint32 group)
    {
        return {{}, 0, 0, {group}, true};
    }

    /** Wildcards and groups do not count for root, whatever its name is. */
    bool isRoot() const
    {
        return uid == 0 && !isAnyMember;
    }
};
}

#endif
