/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountrecords.h"

QStringList GroupRecord::everybody() const
{
    QStringList names = members + primaryMembers;
    names.removeDuplicates();
    return names;
}

QString UserRecord::fullName() const
{
    return gecos.section(QLatin1Char(','), 0, 0);
}
