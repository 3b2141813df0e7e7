/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTFILE_P_H
#define ACCOUNTFILE_P_H

#include <cstdio>
#include <memory>

struct FileCloser {
    void operator()(FILE *file) const
    {
        fclose(file);
    }
};

/** An account database open for fgetpwent or fgetgrent; null when it could not be opened. */
using AccountFile = std::unique_ptr<FILE, FileCloser>;

inline constexpr char passwdPath[] = "/etc/passwd";
inline constexpr char groupPath[] = "/etc/group";

inline AccountFile openAccountFile(const char *path)
{
    return AccountFile(fopen(path, "r"));
}

#endif
