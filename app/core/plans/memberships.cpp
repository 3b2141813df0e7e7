/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "memberships.h"

#include "recordtext.h"
#include "visibletext.h"

#include <KLocalizedString>

#include <QRegularExpression>

namespace
{
QString shown(const QString &name)
{
    return VisibleText::isolated(RecordText::decode(name));
}

void addMember(Plan &plan, const QString &user, const QString &group)
{
    plan.add({"gpasswd", "--add", user.toLatin1()}, group.toLatin1());
}

void removeMember(Plan &plan, const QString &user, const QString &group)
{
    plan.add({"gpasswd", "--delete", user.toLatin1()}, group.toLatin1());
}

/** The groups to join: those that fit into a list with one command. */
void addGroups(Plan &plan, const QString &user, const QStringList &groups)
{
    QByteArrayList listed;
    QStringList others;
    for (const QString &group : groups) {
        if (Memberships::fitsInList(group.toLatin1())) {
            listed.append(group.toLatin1());
        } else {
            others.append(group);
        }
    }
    if (!listed.isEmpty()) {
        plan.add({"usermod", "--append", "--groups", listed.join(',')}, user.toLatin1());
    }
    for (const QString &group : qAsConst(others)) {
        addMember(plan, user, group);
    }
}
}

QStringList Memberships::localUsers()
{
    QStringList names;
    const QHash<uint, QStringList> members = GroupInfo::getPrimaryGroups();
    for (const QStringList &users : members) {
        names += users;
    }
    return names;
}

bool Memberships::fitsInList(const QByteArray &group)
{
    static const QRegularExpression name(QStringLiteral("\\A[A-Za-z_][A-Za-z0-9_.-]*[$]?\\z"));
    return name.match(QString::fromLatin1(group)).hasMatch();
}

bool Memberships::isKnownToTools(const QString &name, Plan &plan)
{
    if (!name.startsWith(QLatin1Char('-')) && !name.startsWith(QLatin1Char('+'))) {
        return true;
    }
    plan.notes.append(
        i18n("'%1' begins with '%2'. No tool accepts such a name. Change the line by hand.", shown(name), name.at(0)));
    return false;
}

bool Memberships::canBeMember(const QString &user, Plan &plan)
{
    if (!user.contains(QLatin1Char(','))) {
        return isKnownToTools(user, plan);
    }
    plan.notes.append(
        i18n("The name '%1' has a comma, which separates the members of a group. No group can name this user.",
             shown(user)));
    return false;
}

Plan Memberships::changeGroups(const QString &user, const QStringList &wanted, const QList<GroupMembers> &groups)
{
    Plan plan;
    if (!canBeMember(user, plan)) {
        return plan;
    }
    QStringList seen;
    QStringList joined;
    QStringList left;
    for (const GroupMembers &members : groups) {
        const QString &group = members.group.name();
        if (group.isEmpty() || seen.contains(group)) {
            continue; // the tools change the first line of a name
        }
        seen.append(group);
        const bool isWanted = wanted.contains(group);
        const bool isNamed = members.group.users().contains(user);
        const bool isPrimary = members.primary.contains(user);
        const bool isChanged = isWanted ? !isNamed && !isPrimary : isNamed;
        if (isChanged && isKnownToTools(group, plan)) {
            (isWanted ? joined : left).append(group);
        }
        if (!isWanted && isPrimary) {
            plan.notes.append(i18n("%1 is the primary group of %2 and stays one of the groups. To choose another "
                                   "primary group, use 'usermod --gid'.",
                                   shown(group),
                                   shown(user)));
        }
    }
    addGroups(plan, user, joined);
    for (const QString &group : qAsConst(left)) {
        removeMember(plan, user, group);
    }
    return plan;
}

Plan Memberships::changeMembers(const GroupMembers &group, const QStringList &wanted, const QStringList &accounts)
{
    Plan plan;
    const QString &name = group.group.name();
    const QStringList &named = group.group.users();
    if (!isKnownToTools(name, plan)) {
        return plan;
    }
    for (const QString &user : wanted) {
        if (!named.contains(user) && !group.primary.contains(user) && canBeMember(user, plan)) {
            addMember(plan, user, name);
        }
    }
    int unknown = 0;
    for (const QString &user : named) {
        if (!accounts.contains(user)) {
            ++unknown;
        } else if (!wanted.contains(user) && isKnownToTools(user, plan)) {
            removeMember(plan, user, name);
        }
    }
    if (!group.primary.isEmpty()) {
        plan.notes.append(i18np("This is the primary group of one user, who cannot be removed from it.",
                                "This is the primary group of %1 users, who cannot be removed from it.",
                                group.primary.size()));
    }
    if (unknown > 0) {
        plan.notes.append(i18np("One member has no line in /etc/passwd and stays.",
                                "%1 members have no line in /etc/passwd and stay.",
                                unknown));
    }
    return plan;
}
