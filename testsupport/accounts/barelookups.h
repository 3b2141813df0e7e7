/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef BARELOOKUPS_H
#define BARELOOKUPS_H

/** Loops over the C library's account functions, for comparing speed. */
namespace BareLookups
{
/** The least work for listing users: every account of /etc/passwd with the ids of its groups. */
int countMemberships();

/** The additional work for the records: every group of /etc/group by its id and by its name. */
int lookUpGroups();

/** The minimum for one user: the account @p name, and each of its groups by its id and by its name. */
int lookUpUser(const char *name);

/** Reads /etc/passwd once. */
int countUsers();

/** Reads /etc/group once. */
int countGroups();
}

#endif
