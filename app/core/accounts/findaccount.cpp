/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "findaccount.h"

#include "recordtext.h"

#include <GroupInfo>
#include <UserInfo>

namespace
{
template<typename Record>
Record find(const QString &name, Record (*lookUp)(const QString &name))
{
    Record record;
    const QStringList candidates = RecordText::encode(name);
    for (const QString &candidate : candidates) {
        record = lookUp(candidate);
        if (!record.isEmpty()) {
            break;
        }
    }
    return record;
}
}

UserInfo FindAccount::user(const QString &name)
{
    return find<UserInfo>(name, UserInfo::getUser);
}

GroupInfo FindAccount::group(const QString &name)
{
    return find<GroupInfo>(name, GroupInfo::getGroup);
}
