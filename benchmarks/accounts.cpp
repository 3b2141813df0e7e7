/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountsetup.h"
#include "barelookups.h"
#include "comparison.h"

#include <GroupInfo>
#include <UserInfo>

#include <string>

using benchmark::State;

namespace
{
template<SharedGroups place>
void getUsers(State &state)
{
    prepareAccounts(state, place);
    measure(state, [] { return UserInfo::getUsers(); });
}

template<SharedGroups place>
void makeCallsOfGetUsers(State &state)
{
    prepareAccounts(state, place);
    measure(state,
            [] { return BareLookups::countMemberships() + BareLookups::lookUpGroups() + BareLookups::countUsers(); });
}

void getGroups(State &state)
{
    prepareAccounts(state);
    measure(state, [] { return GroupInfo::getGroups(); });
}

void countEntries(State &state)
{
    prepareAccounts(state);
    measure(state, [] { return BareLookups::countGroups() + BareLookups::countUsers(); });
}

/** The account in the middle of the file. */
std::string middleName(const State &state)
{
    return "user" + std::to_string(state.range(0) / 2);
}

template<SharedGroups place>
void getUser(State &state)
{
    prepareAccounts(state, place);
    const QString name = QString::fromStdString(middleName(state));
    measure(state, [&name] { return UserInfo::getUser(name); });
}

template<SharedGroups place>
void makeCallsOfGetUser(State &state)
{
    prepareAccounts(state, place);
    const std::string name = middleName(state);
    measure(state, [&name] { return BareLookups::lookUpUser(name.c_str()) + BareLookups::countUsers(); });
}
}

Comparisons accountComparisons()
{
    return {
        {"getUsers_sharedLast",
         "`UserInfo::getUsers()`, shared groups last in `/etc/group`",
         "its calls of the C library, each distinct one once",
         {1.15, 1000, 1.25},
         "#listing-users",
         {100, 1000, 10000},
         benchmark::oNSquared,
         getUsers<SharedGroups::Last>,
         makeCallsOfGetUsers<SharedGroups::Last>},
        {"getUsers_sharedFirst",
         "`UserInfo::getUsers()`, shared groups first",
         "the same",
         {1.15, 1000, 1.25},
         "#listing-users",
         {100, 1000, 10000},
         benchmark::oNSquared,
         getUsers<SharedGroups::First>,
         makeCallsOfGetUsers<SharedGroups::First>},
        {"getGroups",
         "`GroupInfo::getGroups()`",
         "`fgetgrent` for each group, `fgetpwent` for each account",
         {2.5},
         "",
         {100, 1000, 10000},
         benchmark::oNLogN,
         getGroups,
         countEntries},
        {"getUser_sharedLast",
         "`UserInfo::getUser(name)`, shared groups last",
         "its calls of the C library, each distinct one once",
         {1.15, 10000, 1.25},
         "#one-user",
         {100, 1000, 10000},
         benchmark::oNLogN,
         getUser<SharedGroups::Last>,
         makeCallsOfGetUser<SharedGroups::Last>},
        {"getUser_sharedFirst",
         "`UserInfo::getUser(name)`, shared groups first",
         "the same",
         {1.15, 10000, 1.25},
         "#one-user",
         {100, 1000, 10000},
         benchmark::oNLogN,
         getUser<SharedGroups::First>,
         makeCallsOfGetUser<SharedGroups::First>},
    };
}
