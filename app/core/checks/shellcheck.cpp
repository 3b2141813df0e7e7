/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountchecks.h"

#include "lineproblem.h"

#include <QSet>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace
{
QSet<QByteArray> listedShells()
{
    QSet<QByteArray> shells;
    setusershell();
    for (const char *shell = getusershell(); shell; shell = getusershell()) {
        shells.insert(shell);
    }
    endusershell();
    return shells;
}

bool isProgram(const QByteArray &path)
{
    struct stat status = {};
    if (stat(path.constData(), &status) != 0) {
        return errno == EACCES; // then it is unknown
    }
    return S_ISREG(status.st_mode) && (status.st_mode & (S_IXUSR | S_IXGRP | S_IXOTH)) != 0;
}

/** Whether the shell is one that refuses logins. */
bool refusesLogin(const QByteArray &shell)
{
    return shell.endsWith("/nologin") || shell.endsWith("/false");
}
}

QList<Problem> checkShells(const AccountFiles &files)
{
    const QSet<QByteArray> listed = listedShells();
    QList<Problem> problems;
    for (const UserLine &user : files.users.lines) {
        if (user.shell.isEmpty()) {
            continue; // it means /bin/sh
        }
        const QStringList details{textOf(user.name), textOf(user.shell)};
        const bool mayLogIn = user.uid == 0 || !isIdOfSystem(user.uid);
        if (!isProgram(user.shell)) {
            problems.append(lineProblem(Problem::Kind::UnusableShell, user, details));
        } else if (mayLogIn && !refusesLogin(user.shell) && !listed.contains(user.shell)) {
            problems.append(lineProblem(Problem::Kind::UnlistedShell, user, details));
        }
    }
    return problems;
}
