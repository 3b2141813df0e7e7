/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GENERATEDACCOUNTS_H
#define GENERATEDACCOUNTS_H

/** Any number of accounts, the same in each run. */
namespace GeneratedAccounts
{
inline constexpr int sharedGroups = 20;
inline constexpr int memberships = 3;

/** Where the groups with many members are in the file. */
enum class SharedGroups { First, Last };

/**
 * Replaces the account files, inside the sandbox, by @p count accounts. Each has a primary group of
 * its own and is in a few of the shared groups. The administrators group, which has no member, comes
 * right after these. Their place matters: getgrgid and getgrnam, unlike getgrouplist, parse the
 * members of every line that they pass.
 */
void write(int count, SharedGroups place = SharedGroups::Last);
}

#endif
