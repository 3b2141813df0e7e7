/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERFIXTURES_H
#define USERFIXTURES_H

#include "sandbox.h"

#include <UserInfo>

/** Sets four local users and six local groups. */
inline void setUsers()
{
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts("root:x:0:0:root:/root:/bin/bash\n"
                         "zed:x:1001:1001:Zed:/home/zed:/bin/zsh\n"
                         "alice:x:1000:1000:Alice A.,Room 1,,:/home/alice:/bin/bash\n"
                         "nobody:x:65534:65534:nobody:/nonexistent:/usr/sbin/nologin\n",
                         "root:x:0:\n"
                         "ormel-admin:x:27:alice\n"
                         "audio:x:29:zed,alice\n"
                         "alice:x:1000:\n"
                         "zed:x:1001:\n"
                         "nogroup:x:65534:\n");
}

inline UserInfo user(const char *name)
{
    return UserInfo::getUser(QString::fromLatin1(name));
}

inline QString groupNames(const UserInfo &user)
{
    return user.groupNames().join(QLatin1Char(' '));
}

#endif
