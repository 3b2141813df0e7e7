/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "callhook.h"
#include "standin.h"

#include <QtGlobal>

#include <cstdio>

#include <grp.h>
#include <pwd.h>
#include <unistd.h>

namespace
{
int s_calls = 0;
const std::function<void(int)> *s_onCall = nullptr;

void called()
{
    if (s_onCall) {
        (*s_onCall)(s_calls);
        ++s_calls;
    }
}
}

extern "C" Q_DECL_EXPORT FILE *fopen(const char *path, const char *mode)
{
    static const auto next = original(fopen, "fopen");
    called();
    return next(path, mode);
}

extern "C" Q_DECL_EXPORT passwd *fgetpwent(FILE *file)
{
    static const auto next = original(fgetpwent, "fgetpwent");
    called();
    return next(file);
}

extern "C" Q_DECL_EXPORT group *fgetgrent(FILE *file)
{
    static const auto next = original(fgetgrent, "fgetgrent");
    called();
    return next(file);
}

extern "C" Q_DECL_EXPORT int getgrouplist(const char *user, gid_t group, gid_t *groups, int *count)
{
    static const auto next = original(getgrouplist, "getgrouplist");
    called();
    return next(user, group, groups, count);
}

extern "C" Q_DECL_EXPORT group *getgrgid(gid_t gid)
{
    static const auto next = original(getgrgid, "getgrgid");
    called();
    return next(gid);
}

extern "C" Q_DECL_EXPORT group *getgrnam(const char *name)
{
    static const auto next = original(getgrnam, "getgrnam");
    called();
    return next(name);
}

extern "C" Q_DECL_EXPORT ssize_t read(int file, void *buffer, size_t size)
{
    static const auto next = original(read, "read");
    called();
    return next(file, buffer, size);
}

int callsOf(const std::function<void()> &read, const std::function<void(int)> &onCall)
{
    s_calls = 0;
    s_onCall = &onCall;
    read();
    s_onCall = nullptr;
    return s_calls;
}
