/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SESSIONACCOUNTS_H
#define SESSIONACCOUNTS_H

#include "sandbox.h"

#include <QList>

/** Accounts that differ in everything that rules look at: root twice, groups of all kinds, a high uid. */
inline void setSessionAccounts()
{
    Sandbox::setNameService("files");
    Sandbox::setAccounts("root:x:0:0:root:/root:/bin/bash\n"
                         "toor:x:0:50:root:/root:/bin/bash\n"
                         "alice:x:1001:1001::/home/alice:/bin/bash\n"
                         "bob:x:1005:100::/home/bob:/bin/bash\n"
                         "carol:x:1010:4242::/home/carol:/bin/bash\n"
                         "dave:x:4294967290:100::/home/dave:/bin/bash\n",
                         "root:x:0:\n"
                         "audio:x:29:alice,toor\n"
                         "staff:x:50:alice,bob\n"
                         "users:x:100:\n"
                         "alice:x:1001:\n"
                         "twin:x:50:carol\n"
                         "twice:x:60:alice\n"
                         "twice:x:61:bob\n");
}

inline QList<QByteArray> sessionAccounts()
{
    return {"root", "toor", "alice", "bob", "carol", "dave"};
}

#endif
