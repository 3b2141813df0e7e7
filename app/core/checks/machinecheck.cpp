/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "machinecheck.h"

#include "accountchecks.h"
#include "accountfiles.h"
#include "limitcheck.h"

#include <cerrno>
#include <type_traits>

namespace
{
using Check = QList<Problem> (*)(const AccountFiles &);

constexpr Check checks[] = {
    checkLines,
    checkDuplicateNames,
    checkNames,
    checkHomes,
    checkShells,
    checkPasswords,
};

/** Without one of the files, these checks would report its accounts as missing. */
constexpr Check checksAcrossFiles[] = {
    checkIds,
    checkMembers,
    checkShadowLines,
};

template<typename Line>
QList<UnreadFile> unread(const AccountFile<Line> &file)
{
    if (file.error == 0) {
        return {};
    }
    constexpr bool isShadow = std::is_same_v<Line, UserShadowLine> || std::is_same_v<Line, GroupShadowLine>;
    const bool isExpected = isShadow && (file.error == EACCES || file.error == ENOENT);
    return {{QString::fromLatin1(Line::path), qt_error_string(file.error), isExpected}};
}

bool areReadable(const AccountFiles &files)
{
    return files.users.error == 0 && files.groups.error == 0;
}

QList<Problem> problemsOf(const AccountFiles &files)
{
    QList<Problem> problems;
    for (const Check check : checks) {
        problems += check(files);
    }
    if (areReadable(files)) {
        for (const Check check : checksAcrossFiles) {
            problems += check(files);
        }
    }
    return problems;
}
}

MachineCheck MachineCheck::run()
{
    const AccountFiles files = AccountFiles::read();
    MachineCheck result = areReadable(files) ? checkLimits() : MachineCheck();
    result.problems += problemsOf(files);
    sortProblems(result.problems);
    result.unreadFiles = unread(files.users) + unread(files.groups) + unread(files.userShadow)
        + unread(files.groupShadow) + result.unreadFiles;
    return result;
}
