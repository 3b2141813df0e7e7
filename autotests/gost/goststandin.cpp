/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include <cstdio>

// A stand-in for a GOST crypt library: it only shares the name and the function.

extern "C" __attribute__((visibility("default"))) char *gost_crypt(const char *key, const char *setting)
{
    static char result[200];
    std::snprintf(result, sizeof(result), "stand-in %s %s", key, setting);
    return result;
}
