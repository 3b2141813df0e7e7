/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "barelookups.h"

#include <cstdio>
#include <string>

#include <grp.h>
#include <pwd.h>

namespace
{
/** The sum of @p count over the entries that @p next reads from the file @p path. */
template<typename Entry, typename Count>
int sum(const char *path, Entry *(*next)(FILE *), const Count &count)
{
    int sum = 0;
    FILE *file = fopen(path, "r");
    while (const Entry *entry = next(file)) {
        sum += count(entry);
    }
    fclose(file);
    return sum;
}

struct Memberships {
    gid_t ids[64];
    int count = 64;
};

Memberships membershipsOf(const passwd *entry)
{
    Memberships memberships;
    getgrouplist(entry->pw_name, entry->pw_gid, memberships.ids, &memberships.count);
    return memberships;
}

int lookUpGroup(gid_t gid)
{
    const std::string name = getgrgid(gid)->gr_name;
    return getgrnam(name.c_str()) ? 1 : 0;
}
}

int BareLookups::countMemberships()
{
    return sum("/etc/passwd", fgetpwent, [](const passwd *entry) { return membershipsOf(entry).count; });
}

int BareLookups::lookUpGroups()
{
    return sum("/etc/group", fgetgrent, [](const group *entry) { return lookUpGroup(entry->gr_gid); });
}

int BareLookups::lookUpUser(const char *name)
{
    const Memberships memberships = membershipsOf(getpwnam(name));
    int groups = getgrnam("ormel-admin") ? 1 : 0;
    for (int i = 0; i < memberships.count; ++i) {
        groups += lookUpGroup(memberships.ids[i]);
    }
    return groups;
}

int BareLookups::countUsers()
{
    return sum("/etc/passwd", fgetpwent, [](const passwd * /*entry*/) { return 1; });
}

int BareLookups::countGroups()
{
    return sum("/etc/group", fgetgrent, [](const group * /*entry*/) { return 1; });
}
