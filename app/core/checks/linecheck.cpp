/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountchecks.h"

#include "lineproblem.h"

#include <QHash>

namespace
{
template<typename Line>
QList<Problem> duplicateNames(const QVector<Line> &lines)
{
    QList<Problem> problems;
    QHash<QByteArray, int> firstNumbers;
    for (const Line &line : lines) {
        const int first = firstNumbers.value(line.name);
        if (first > 0) {
            const QStringList details{textOf(line.name), QString::number(first)};
            problems.append(lineProblem(Problem::Kind::DuplicateName, line, details));
        } else {
            firstNumbers.insert(line.name, line.number);
        }
    }
    return problems;
}
}

QList<Problem> checkLines(const AccountFiles &files)
{
    return files.users.problems + files.groups.problems + files.userShadow.problems + files.groupShadow.problems;
}

QList<Problem> checkDuplicateNames(const AccountFiles &files)
{
    return duplicateNames(files.users.lines) + duplicateNames(files.groups.lines)
        + duplicateNames(files.userShadow.lines) + duplicateNames(files.groupShadow.lines);
}
