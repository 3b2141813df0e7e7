/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountmodel.h"
#include "describe.h"
#include "fuzzing.h"
#include "messagerecorder.h"
#include "sandbox.h"

#include <UserInfo>

#include <grp.h>
#include <pwd.h>

using Fuzzing::requireEqual;

// An input is an /etc/passwd and, behind a line that is "---", an /etc/group.

namespace
{
constexpr int mostReloads = 3;

QString text(const QStringList &lines)
{
    return lines.join(QLatin1Char('\n'));
}

/** Whether the account and its primary group are there, as reload() needs them. */
bool canBeReloaded(const UserInfo &user)
{
    const passwd *entry = getpwnam(user.name().toLatin1().constData());
    return entry && getgrgid(entry->pw_gid);
}

void reload(UserInfo user)
{
    if (canBeReloaded(user)) {
        const UserInfo found = UserInfo::getUser(user.name());
        user.reload();
        requireEqual(describe(user), describe(found), "A user, read again");
    }
}

void reload(GroupInfo group)
{
    const GroupInfo found = GroupInfo::getGroup(group.name());
    const QString name = group.name();
    group.reload();
    requireEqual(group.name(), name, "The name of a group, read again");
    Fuzzing::require(group.gid() == found.gid() && group.users() == found.users(),
                     QLatin1String("A group, read again: ") + describe(found));
}
}

void Target::prepare()
{
    Sandbox::removeExtraAccounts();
}

void Target::run(const QByteArray &input)
{
    const QList<QByteArray> files = Fuzzing::sections(input, 2);
    Sandbox::setAccounts(files.at(0), files.at(1));
    AccountModel expected;
    const QStringList users = expected.users();
    const QStringList groups = expected.groups();

    QList<UserInfo> actualUsers;
    QList<GroupInfo> actualGroups;
    QStringList warnings;
    {
        MessageRecorder recorder;
        actualUsers = UserInfo::getUsers();
        actualGroups = GroupInfo::getGroups();
        warnings = recorder.takeTexts();
    }
    requireEqual(text(describe(actualUsers)), text(users), "The users");
    requireEqual(text(describe(actualGroups)), text(groups), "The groups");
    requireEqual(text(warnings), text(expected.warnings), "The warnings");

    const QList<UserInfo> firstUsers = actualUsers.mid(0, mostReloads);
    for (const UserInfo &user : firstUsers) {
        reload(user);
    }
    const QList<GroupInfo> firstGroups = actualGroups.mid(0, mostReloads);
    for (const GroupInfo &group : firstGroups) {
        reload(group);
    }
}
