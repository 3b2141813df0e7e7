/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef BARELOOKUPS_H
#define BARELOOKUPS_H

/** Loops over the C library's account functions, to compare the library's speed with. */
namespace BareLookups
{
/** The least that listing the users takes: every account of /etc/passwd with the ids of its groups. */
int countMemberships();

/** What the records need on top of that: every group of /etc/group looked up by its id and by its name. */
int lookUpGroups();

/** Looks up the account @p name and the ids of its groups, and gives their number. */
int countMembershipsOf(const char *name);

/** Reads /etc/passwd once. */
int countUsers();

/** Reads /etc/group once. */
int countGroups();
}

#endif
