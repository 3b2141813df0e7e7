/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "newaccount.h"

#include "memberships.h"

#include <KLocalizedString>

#include <QRegularExpression>

namespace
{
/** Adds an option, unless its value is empty. */
void addOption(Plan::Command &command, const char *option, const QString &value)
{
    if (!value.isEmpty()) {
        command << option << value.toUtf8();
    }
}

/** Whether every useradd accepts @p name. Newer ones refuse other names unless an option allows them. */
bool isUsualName(const QString &name)
{
    static const QRegularExpression usual(QStringLiteral("\\A[A-Za-z_][A-Za-z0-9_-]*[$]?\\z"));
    return usual.match(name).hasMatch();
}

Plan::Command userCommand(const NewAccount &account, const QByteArrayList &groups)
{
    Plan::Command command{"useradd", "--create-home"};
    if (!isUsualName(account.userName)) {
        command << "--badname";
    }
    addOption(command, "--uid", account.uid);
    if (account.primaryGroup == NewAccount::PrimaryGroup::OfItsName) {
        command << "--user-group";
    } else {
        addOption(command, "--gid", account.groupName);
    }
    addOption(command, "--comment", account.fullName);
    if (!groups.isEmpty()) {
        command << "--groups" << groups.join(',');
    }
    return command;
}

Plan::Command detailsCommand(const NewAccount &account)
{
    Plan::Command command{"chfn"};
    addOption(command, "--room", account.room);
    addOption(command, "--work-phone", account.workPhone);
    addOption(command, "--home-phone", account.homePhone);
    addOption(command, "--other", account.other);
    return command;
}
}

Plan NewAccount::plan() const
{
    Plan plan;
    const QByteArray name = userName.toUtf8();
    QByteArrayList listed;
    QByteArrayList others;
    for (const QString &group : groups) {
        const QByteArray bytes = group.toLatin1();
        (Memberships::fitsInList(bytes) ? listed : others).append(bytes);
    }
    if (primaryGroup == PrimaryGroup::New) {
        plan.add({"groupadd"}, groupName.toUtf8());
    }
    plan.add(userCommand(*this, listed), name);
    for (const QByteArray &group : qAsConst(others)) {
        plan.add({"gpasswd", "--add", name}, group);
    }
    const Plan::Command details = detailsCommand(*this);
    if (details.size() > 1) {
        plan.add(details, name);
    }
    if (passwordHash.isEmpty()) {
        plan.notes.append(i18n("Without a password hash, nobody can log in with a password until passwd(1) sets one."));
    } else {
        plan.add({"usermod", "--password", passwordHash.toUtf8()}, name);
        plan.holdsHash = true;
    }
    return plan;
}
