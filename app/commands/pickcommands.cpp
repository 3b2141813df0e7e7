/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "pickcommands.h"

#include "accountdialogs.h"
#include "findaccount.h"
#include "recordtext.h"
#include "visibletext.h"

#include <GroupInfo>
#include <GroupSelectDialog>
#include <UserInfo>
#include <UserSelectDialog>

#include <KLocalizedString>

#include <QCommandLineParser>

namespace
{
QString groupOption()
{
    return QStringLiteral("group");
}

QString userOption()
{
    return QStringLiteral("user");
}

QString singleOption()
{
    return QStringLiteral("single");
}

/** Prints the names; Failure, with a message, when there are none. */
int printNames(const QStringList &names)
{
    QString lines;
    for (const QString &name : names) {
        if (!name.isEmpty()) {
            lines += VisibleText::fromText(RecordText::decode(name)) + QLatin1Char('\n');
        }
    }
    return lines.isEmpty() ? failure(i18n("Nothing was chosen.")) : print(lines);
}
}

QList<QCommandLineOption> pickUsersOptions()
{
    return {
        QCommandLineOption(
            groupOption(), i18n("Pick the members of a group: they are checked at first."), i18n("name")),
        QCommandLineOption(singleOption(), i18n("Pick one user.")),
    };
}

QList<QCommandLineOption> pickGroupsOptions()
{
    return {
        QCommandLineOption(userOption(), i18n("Pick the groups of a user: they are checked at first."), i18n("name")),
        QCommandLineOption(singleOption(), i18n("Pick one group.")),
    };
}

int pickUsers(const QCommandLineParser &options, const QString & /*operand*/)
{
    GroupInfo group;
    if (options.isSet(groupOption())) {
        group = FindAccount::group(options.value(groupOption()));
        if (group.isEmpty()) {
            return failure(i18n("There is no group '%1'.", options.value(groupOption())));
        }
    }
    UserSelectDialog dialog(group, group.users());
    AccountDialogs::prepareSelection(dialog);
    dialog.setSingleSelectionMode(options.isSet(singleOption()));
    return dialog.exec() == QDialog::Accepted ? printNames(dialog.selectedUserNames()) : Failure;
}

int pickGroups(const QCommandLineParser &options, const QString & /*operand*/)
{
    UserInfo user;
    if (options.isSet(userOption())) {
        user = FindAccount::user(options.value(userOption()));
        if (user.isEmpty()) {
            return failure(i18n("There is no user '%1'.", options.value(userOption())));
        }
    }
    const bool single = options.isSet(singleOption());
    GroupSelectDialog dialog(user.name(), user.groupNames());
    AccountDialogs::prepareSelection(dialog);
    dialog.setSingleSelectionMode(single);
    if (dialog.exec() != QDialog::Accepted) {
        return Failure;
    }
    return printNames(single ? QStringList(dialog.selectedGroupName()) : dialog.selectedGroupNames());
}
