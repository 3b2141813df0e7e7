/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountchecks.h"

#include "lineproblem.h"

#include <cerrno>

#include <pwd.h>
#include <sys/stat.h>

namespace
{
using Kind = Problem::Kind;

/** Written on purpose for accounts without a home directory. */
constexpr char nonexistent[] = "/nonexistent";

QString ownerName(uid_t uid)
{
    const passwd *owner = getpwuid(uid);
    return owner ? textOf(owner->pw_name) : QString::number(uid);
}

bool isMissing(int error)
{
    return error == ENOENT || error == ENOTDIR || error == ELOOP || error == ENAMETOOLONG;
}

/** Many system accounts have a directory of the system as their home. */
bool isForeign(const UserLine &user, uid_t owner)
{
    return owner != user.uid && !(owner == 0 && isIdOfSystem(user.uid));
}

/** The directory is not opened: what is there may be anything. */
QList<Problem> checkHome(const UserLine &user)
{
    const QStringList nameAndPath{textOf(user.name), textOf(user.home)};
    struct stat status = {};
    // A relative path means another directory each time.
    const bool found = user.home.startsWith('/') && stat(user.home.constData(), &status) == 0;
    if (!found && (!user.home.startsWith('/') || isMissing(errno))) {
        const Kind kind = isIdOfSystem(user.uid) && user.uid != 0 ? Kind::MissingSystemHome : Kind::MissingHome;
        return {lineProblem(kind, user, nameAndPath)};
    }
    if (!found) {
        return {};
    }
    if (!S_ISDIR(status.st_mode)) {
        return {lineProblem(Kind::HomeNotDirectory, user, nameAndPath)};
    }
    if (isForeign(user, status.st_uid)) {
        const QStringList details{nameAndPath.at(0), ownerName(status.st_uid), nameAndPath.at(1)};
        return {lineProblem(Kind::ForeignHome, user, details)};
    }
    return {};
}
}

QList<Problem> checkHomes(const AccountFiles &files)
{
    QList<Problem> problems;
    for (const UserLine &user : files.users.lines) {
        if (!user.home.isEmpty() && user.home != nonexistent) {
            problems += checkHome(user);
        }
    }
    return problems;
}
