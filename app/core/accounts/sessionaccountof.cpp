/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "sessionaccountof.h"

#include "accountrecords.h"
#include "recordtext.h"

PamLimits::Account sessionAccountOf(const UserRecord &user)
{
    PamLimits::Account account;
    account.name = RecordText::encode(user.name).constFirst().toLatin1();
    account.uid = user.uid;
    account.gid = user.gid;
    account.groups = user.gids;
    if (!account.groups.contains(user.gid)) {
        account.groups.append(user.gid);
    }
    return account;
}
