/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountchecks.h"

#include "inputcheck.h"
#include "lineproblem.h"

#include <UserUtils>

#include <algorithm>
#include <memory>

namespace
{
bool isForbidden(char character)
{
    const auto byte = uchar(character);
    return byte <= ' ' || byte == 0x7f || byte == ':' || byte == ',' || byte == '/';
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

/** Whether no program accepts this name, whatever the rule for new names is. */
bool isInvalid(const QByteArray &name)
{
    return name.isEmpty() || name.size() > longestName || name == "." || name == ".."
        || QByteArray("-+~").contains(name.at(0)) || std::any_of(name.begin(), name.end(), isForbidden)
        || std::all_of(name.begin(), name.end(), isDigit);
}

uint idOf(const UserLine &user)
{
    return user.uid;
}

uint idOf(const GroupLine &group)
{
    return group.gid;
}

/** The rule for new names is for ordinary accounts; system accounts come from packages. */
template<typename Line>
QList<Problem> checkNamesOf(const QVector<Line> &lines, QValidator *(*createValidator)(QObject *))
{
    const std::unique_ptr<QValidator> rule(createValidator(nullptr));
    QList<Problem> problems;
    for (const Line &line : lines) {
        const QString name = textOf(line.name);
        if (isInvalid(line.name)) {
            problems.append(lineProblem(Problem::Kind::InvalidName, line, {name}));
            continue;
        }
        const InputCheck check = checkInput(*rule, name, longestName);
        if (check.state != QValidator::Acceptable && !isIdOfSystem(idOf(line))) {
            problems.append(lineProblem(Problem::Kind::RefusedName, line, {name, check.pattern}));
        }
    }
    return problems;
}
}

QList<Problem> checkNames(const AccountFiles &files)
{
    return checkNamesOf(files.users.lines, UserUtils::createUserNameValidator)
        + checkNamesOf(files.groups.lines, UserUtils::createGroupNameValidator);
}
