/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LINEPROBLEM_H
#define LINEPROBLEM_H

#include "accountfiles.h"

#include <QHash>

#include <type_traits>

/** @p text of an account file: UTF-8 where it is valid, otherwise Latin-1. */
QString textOf(const QByteArray &text);

/** Whether the library counts accounts with @p id as system accounts. */
bool isIdOfSystem(uint id);

/** A problem of @p line. */
template<typename Line>
Problem lineProblem(Problem::Kind kind, const Line &line, const QStringList &details)
{
    constexpr bool ofGroup = std::is_same_v<Line, GroupLine> || std::is_same_v<Line, GroupShadowLine>;
    Problem problem;
    problem.kind = kind;
    problem.file = QString::fromLatin1(Line::path);
    problem.line = line.number;
    (ofGroup ? problem.group : problem.user) = textOf(line.name);
    problem.details = details;
    return problem;
}

/** The lines by their names; of lines with the same name the first one counts. */
template<typename Line>
QHash<QByteArray, const Line *> linesByName(const QVector<Line> &lines)
{
    QHash<QByteArray, const Line *> result;
    for (const Line &line : lines) {
        if (!result.contains(line.name)) {
            result.insert(line.name, &line);
        }
    }
    return result;
}

#endif
