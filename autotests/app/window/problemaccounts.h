/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROBLEMACCOUNTS_H
#define PROBLEMACCOUNTS_H

#include "limitsfixtures.h"
#include "sandbox.h"

/** Accounts without problems, to which tests add some with problems. */
namespace ProblemAccounts
{
inline const char goodUsers[] = "root:x:0:0:root:/nonexistent:/bin/sh\n"
                                "ada:x:1000:50:Ada:/nonexistent:/bin/sh\n";
inline const char goodGroups[] = "root:x:0:\nstaff:x:50:\n";

/** Adds @p user, a group with a member who does not exist, an empty line, and a limit for nobody. */
inline void addProblems(const QByteArray &user, const QByteArray &group)
{
    Sandbox::setAccounts(goodUsers + user, goodGroups + group + '\n');
    Sandbox::write(limitsPath(), "ada soft core 0\nghost soft core 0\n");
}
}

#endif
