/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountsetup.h"
#include "children.h"
#include "comparison.h"
#include "program.h"

using benchmark::State;

namespace
{
void run(State &state, const QString &program, const QStringList &arguments)
{
    // Both must list the same accounts for their times to be comparable.
    const int lines = Children::outputOf(program, arguments).count('\n');
    if (lines != state.range(0) + 1) {
        qFatal("%s lists %d accounts of %d", qPrintable(program), lines - 1, static_cast<int>(state.range(0)));
    }
    for ([[maybe_unused]] auto iteration : state) {
        state.SetIterationTime(Children::secondsOf(program, arguments));
    }
}

template<SharedGroups place>
void ormelUsers(State &state)
{
    prepareAccounts(state, place);
    run(state, Program::path(), {QStringLiteral("users")});
}

template<SharedGroups place>
void lslogins(State &state)
{
    prepareAccounts(state, place);
    run(state,
        QStringLiteral("lslogins"),
        {QStringLiteral("-u"), QStringLiteral("-o"), QStringLiteral("USER,UID,SUPP-GROUPS")});
}

void usersMemory(State &state)
{
    prepareAccounts(state);
    const QString program = Program::builtFile(QStringLiteral("usersmemory"));
    for ([[maybe_unused]] auto iteration : state) {
        reportBytes(state, Children::outputOf(program, {}).toDouble());
    }
}
}

Comparisons processComparisons()
{
    return {
        {"ormelUsers_sharedLast",
         "`ormel-users users`, shared groups last in `/etc/group`",
         "`lslogins -u -o USER,UID,SUPP-GROUPS`",
         {0.5, 1000, 0.55},
         "#listing-users",
         {100, 1000, 10000},
         benchmark::oNone,
         ormelUsers<SharedGroups::Last>,
         lslogins<SharedGroups::Last>,
         Figure::ChildTime},
        {"ormelUsers_sharedFirst",
         "`ormel-users users`, shared groups first",
         "the same",
         {0.5, 1000, 0.95},
         "#listing-users",
         {100, 1000, 10000},
         benchmark::oNone,
         ormelUsers<SharedGroups::First>,
         lslogins<SharedGroups::First>,
         Figure::ChildTime},
        {"usersMemory",
         "memory of `UserInfo::getUsers()`",
         "",
         {32, 10000},
         "",
         {100, 1000, 10000},
         benchmark::oNone,
         usersMemory,
         nullptr,
         Figure::Memory},
    };
}
