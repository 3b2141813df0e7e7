/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountchecks.h"

#include "lineproblem.h"

#include <QSet>

namespace
{
using Kind = Problem::Kind;

QString pathOf(const char *path)
{
    return QString::fromLatin1(path);
}

/** The password of an account is in the shadow file when its own is "x". */
template<typename Line, typename ShadowLine>
QList<Problem> checkPairs(const QVector<Line> &lines, const QVector<ShadowLine> &shadowLines)
{
    const auto accounts = linesByName(lines);
    const auto shadows = linesByName(shadowLines);
    QList<Problem> problems;
    for (const Line &line : lines) {
        const QStringList details{textOf(line.name), pathOf(ShadowLine::path)};
        if (!shadows.contains(line.name)) {
            problems.append(lineProblem(Kind::MissingShadowLine, line, details));
        } else if (line.password != "x") {
            problems.append(lineProblem(Kind::IgnoredShadowLine, line, details));
        }
    }
    for (const ShadowLine &line : shadowLines) {
        if (!accounts.contains(line.name)) {
            const QStringList details{textOf(line.name), pathOf(Line::path)};
            problems.append(lineProblem(Kind::OrphanShadowLine, line, details));
        }
    }
    return problems;
}

/** The members of @p line that are not in @p otherLine, the line of the same group in the other file. */
template<typename Line, typename OtherLine>
QList<Problem> extraMembers(const Line &line, const OtherLine &otherLine)
{
    const QSet<QByteArray> others(otherLine.members.begin(), otherLine.members.end());
    QList<Problem> problems;
    for (const QByteArray &member : line.members) {
        if (!member.isEmpty() && !others.contains(member)) {
            const QStringList details{textOf(member), textOf(line.name), pathOf(Line::path), pathOf(OtherLine::path)};
            problems.append(lineProblem(Kind::DifferentMembers, line, details));
        }
    }
    return problems;
}

QList<Problem> checkSameMembers(const AccountFiles &files)
{
    const auto groups = linesByName(files.groups.lines);
    QList<Problem> problems;
    for (const GroupShadowLine &shadow : files.groupShadow.lines) {
        if (const GroupLine *group = groups.value(shadow.name)) {
            problems += extraMembers(*group, shadow);
            problems += extraMembers(shadow, *group);
        }
    }
    return problems;
}
}

QList<Problem> checkShadowLines(const AccountFiles &files)
{
    QList<Problem> problems;
    if (files.userShadow.error == 0) {
        problems += checkPairs(files.users.lines, files.userShadow.lines);
    }
    if (files.groupShadow.error == 0) {
        problems += checkPairs(files.groups.lines, files.groupShadow.lines);
    }
    return problems + checkSameMembers(files);
}
