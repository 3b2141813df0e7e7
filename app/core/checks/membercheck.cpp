/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountchecks.h"

#include "lineproblem.h"

#include <QHash>

#include <pwd.h>

namespace
{
/** Which names are those of users. */
class UserNames
{
public:
    explicit UserNames(const QVector<UserLine> &users)
    {
        for (const UserLine &user : users) {
            m_known.insert(user.name, true);
        }
    }

    /** The name service is asked once for each name that is not in the file. */
    bool contains(const QByteArray &name)
    {
        auto known = m_known.find(name);
        if (known == m_known.end()) {
            known = m_known.insert(name, getpwnam(name.constData()) != nullptr);
        }
        return *known;
    }

private:
    QHash<QByteArray, bool> m_known;
};

template<typename Line>
QList<Problem> missing(Problem::Kind kind, const Line &line, const QByteArrayList &names, UserNames &users)
{
    QList<Problem> problems;
    for (const QByteArray &name : names) {
        if (name.isEmpty()) {
            problems.append(lineProblem(Problem::Kind::EmptyMember, line, {textOf(line.name)}));
        } else if (!users.contains(name)) {
            problems.append(lineProblem(kind, line, {textOf(line.name), textOf(name)}));
        }
    }
    return problems;
}
}

QList<Problem> checkMembers(const AccountFiles &files)
{
    UserNames users(files.users.lines);
    QList<Problem> problems;
    for (const GroupLine &group : files.groups.lines) {
        problems += missing(Problem::Kind::MissingMember, group, group.members, users);
    }
    for (const GroupShadowLine &group : files.groupShadow.lines) {
        problems += missing(Problem::Kind::MissingAdministrator, group, group.administrators, users);
        problems += missing(Problem::Kind::MissingMember, group, group.members, users);
    }
    return problems;
}
