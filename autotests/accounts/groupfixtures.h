/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GROUPFIXTURES_H
#define GROUPFIXTURES_H

#include "sandbox.h"

/** Sets three local groups without an administrators group. The group staff has primary members. */
inline void setGroups()
{
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts("root:x:0:0:root:/root:/bin/bash\n"
                         "alice:x:1000:1000::/home/alice:/bin/bash\n"
                         "bob:x:1001:50::/home/bob:/bin/bash\n"
                         "carol:x:1002:50::/home/carol:/bin/bash\n",
                         "root:x:0:\n"
                         "staff:x:50:alice\n"
                         "alice:x:1000:\n");
}

#endif
