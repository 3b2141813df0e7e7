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

#include <algorithm>

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

/** The first of @p records for which @p isWanted is true, as text; null for none. */
template<typename Record, typename Predicate>
QString first(const QList<Record> &records, Predicate isWanted)
{
    const auto found = std::find_if(records.begin(), records.end(), isWanted);
    return found == records.end() ? QString() : describe(*found);
}

/** Finds a user by id. For accounts that the C library does not find, nothing is expected. */
void findUser(uint uid, const QList<UserInfo> &users)
{
    passwd *entry = getpwuid(uid);
    if (!entry) {
        Fuzzing::require(UserInfo::getUser(uid).isEmpty(), QStringLiteral("There is no user %1").arg(uid));
        return;
    }
    const QString name = QString::fromLatin1(entry->pw_name);
    const QString expected =
        first(users, [&](const UserInfo &user) { return user.uid() == uid && user.name() == name; });
    requireEqual(describe(UserInfo::getUser(uid)), expected, "A user by uid");
    const QList<GroupInfo> groups = UserInfo::getUserGroups(getpwuid(uid));
    requireEqual(text(describe(groups)), text(describe(UserInfo::getUser(uid).groups())), "The groups of a user");
}

void findGroup(uint gid, const QList<GroupInfo> &groups)
{
    const group *entry = getgrgid(gid);
    if (!entry) {
        Fuzzing::require(GroupInfo::getGroup(gid).isEmpty(), QStringLiteral("There is no group %1").arg(gid));
        return;
    }
    const QString name = QString::fromLatin1(entry->gr_name);
    const QString expected =
        first(groups, [&](const GroupInfo &group) { return group.gid() == gid && group.name() == name; });
    requireEqual(describe(GroupInfo::getGroup(gid)), expected, "A group by gid");
}

void checkPrimaryGroups(const QList<UserInfo> &users)
{
    QHash<uint, QStringList> expected;
    for (const UserInfo &user : users) {
        expected[user.gid()].append(user.name());
    }
    Fuzzing::require(GroupInfo::getPrimaryGroups() == expected, QStringLiteral("The members by primary group"));
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
        findUser(user.uid(), actualUsers);
        findUser(user.uid() + 1, actualUsers);
    }
    const QList<GroupInfo> firstGroups = actualGroups.mid(0, mostReloads);
    for (const GroupInfo &group : firstGroups) {
        reload(group);
        findGroup(group.gid(), actualGroups);
        findGroup(group.gid() + 1, actualGroups);
    }
    checkPrimaryGroups(actualUsers);
}
