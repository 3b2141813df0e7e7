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

/** Whether useradd and chfn of every release accept @p name. Newer ones refuse other names; useradd has an option. */
bool isUsualName(const QString &name)
{
    static const QRegularExpression usual(QStringLiteral("\\A[A-Za-z_][A-Za-z0-9_-]*[$]?\\z"));
    return usual.match(name).hasMatch();
}

/** The fields of the GECOS field that chfn sets. */
QStringList details(const NewAccount &account)
{
    return {account.room, account.workPhone, account.homePhone, account.other};
}

/** The whole GECOS field as chfn would leave it. */
QString gecos(const NewAccount &account)
{
    QStringList fields = QStringList(account.fullName) + details(account);
    if (account.other.isEmpty()) {
        fields.removeLast();
    }
    return details(account).join(QString()).isEmpty() ? account.fullName : fields.join(QLatin1Char(','));
}

Plan::Command userCommand(const NewAccount &account, const QByteArrayList &groups)
{
    Plan::Command command{"useradd", "--create-home"};
    const bool isUsual = isUsualName(account.userName);
    if (!isUsual) {
        command << "--badname";
    }
    addOption(command, "--uid", account.uid);
    if (account.primaryGroup == NewAccount::PrimaryGroup::OfItsName) {
        command << "--user-group";
    } else {
        addOption(command, "--gid", account.groupName);
    }
    addOption(command, "--comment", isUsual ? account.fullName : gecos(account));
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
    const Plan::Command command = detailsCommand(*this);
    if (command.size() > 1 && isUsualName(userName)) {
        plan.add(command, name);
    }
    if (passwordHash.isEmpty()) {
        plan.notes.append(i18n("Without a password hash, nobody can log in with a password until passwd(1) sets one."));
    } else {
        plan.add({"usermod", "--password", passwordHash.toUtf8()}, name);
        plan.holdsHash = true;
    }
    return plan;
}
