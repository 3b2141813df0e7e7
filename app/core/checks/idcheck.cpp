/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountchecks.h"

#include "lineproblem.h"

#include <QHash>
#include <QSet>

#include <grp.h>

namespace
{
/** The accounts with another name that have the same id. */
template<typename Line>
QList<Problem> sharedIds(const QVector<Line> &lines, uint Line::*id, Problem::Kind kind)
{
    QList<Problem> problems;
    QHash<uint, const Line *> first;
    for (const Line &line : lines) {
        const Line *&other = first[line.*id];
        if (!other) {
            other = &line;
        } else if (other->name != line.name) {
            const QStringList details{textOf(line.name), textOf(other->name), QString::number(line.*id)};
            problems.append(lineProblem(kind, line, details));
        }
    }
    return problems;
}

template<typename Line>
QList<Problem> invalidIds(const QVector<Line> &lines, uint Line::*id)
{
    QList<Problem> problems;
    for (const Line &line : lines) {
        if (line.*id == uint(-1)) {
            const QStringList details{textOf(line.name), QString::number(line.*id)};
            problems.append(lineProblem(Problem::Kind::InvalidId, line, details));
        }
    }
    return problems;
}

QList<Problem> superusers(const QVector<UserLine> &users)
{
    QList<Problem> problems;
    for (const UserLine &user : users) {
        if (user.uid == 0 && user.name != "root") {
            problems.append(lineProblem(Problem::Kind::ExtraSuperuser, user, {textOf(user.name)}));
        }
    }
    return problems;
}

QList<Problem> missingPrimaryGroups(const AccountFiles &files)
{
    QSet<uint> gids;
    for (const GroupLine &group : files.groups.lines) {
        gids.insert(group.gid);
    }
    QList<Problem> problems;
    for (const UserLine &user : files.users.lines) {
        if (!gids.contains(user.gid) && !getgrgid(user.gid)) {
            const QStringList details{textOf(user.name), QString::number(user.gid)};
            problems.append(lineProblem(Problem::Kind::MissingPrimaryGroup, user, details));
        }
    }
    return problems;
}
}

QList<Problem> checkIds(const AccountFiles &files)
{
    const QVector<UserLine> &users = files.users.lines;
    const QVector<GroupLine> &groups = files.groups.lines;
    return sharedIds(users, &UserLine::uid, Problem::Kind::DuplicateUid)
        + sharedIds(groups, &GroupLine::gid, Problem::Kind::DuplicateGid) + invalidIds(users, &UserLine::uid)
        + invalidIds(groups, &GroupLine::gid) + superusers(users) + missingPrimaryGroups(files);
}
