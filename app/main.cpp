/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "checkcommands.h"
#include "command.h"
#include "hashcommand.h"
#include "iconcommands.h"
#include "limitscommands.h"
#include "listcommands.h"
#include "pickcommands.h"

#include <KLocalizedString>

#include <QApplication>
#include <QCommandLineParser>
#include <QSet>

#include <algorithm>
#include <memory>

namespace
{
using Interface = Command::Interface;

const Command commands[] = {
    {"users", "", kli18n("List the user accounts of /etc/passwd."), Interface::Terminal, listOptions, listUsers},
    {"groups", "", kli18n("List the groups of /etc/group."), Interface::Terminal, listOptions, listGroups},
    {"check-name", "NAME", kli18n("Check a login name for a new user."), Interface::Terminal, noOptions, checkName},
    {"check-group", "NAME", kli18n("Check a group name."), Interface::Terminal, noOptions, checkGroup},
    {"check-gecos", "TEXT", kli18n("Check a GECOS field."), Interface::Terminal, noOptions, checkGecos},
    {"hash", "", kli18n("Hash a password from standard input."), Interface::Terminal, hashOptions, hashPassword},
    {"limits",
     "",
     kli18n("Show the resource limits of /etc/security."),
     Interface::Terminal,
     limitsOptions,
     showLimits},
    {"pick-icon",
     "[FILE]",
     kli18n("Cut a square icon out of a picture."),
     Interface::Window,
     pickIconOptions,
     pickIcon},
    {"pick-users", "", kli18n("Pick users in a dialog."), Interface::Window, pickUsersOptions, pickUsers},
    {"pick-groups", "", kli18n("Pick groups in a dialog."), Interface::Window, pickGroupsOptions, pickGroups},
};

const Command *findCommand(const QString &name)
{
    const auto *const found = std::find_if(std::begin(commands), std::end(commands), [&name](const Command &command) {
        return name == QLatin1String(command.name);
    });
    return found == std::end(commands) ? nullptr : found;
}

/** Whether the command opens a window; to read its help, no display is needed. */
bool needsDisplay(const Command *command, int argc, char **argv)
{
    const bool helps = std::any_of(argv, argv + argc, [](const char *argument) {
        return qstrcmp(argument, "-h") == 0 || qstrcmp(argument, "--help") == 0;
    });
    return command && command->interface == Interface::Window && !helps;
}

std::unique_ptr<QCoreApplication> makeApplication(bool forWindow, int &argc, char **argv)
{
    if (forWindow) {
        return std::make_unique<QApplication>(argc, argv);
    }
    return std::make_unique<QCoreApplication>(argc, argv);
}

/** Shows each message of the library once: a missing administrators group is reported for every account. */
void showOnce(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    Q_UNUSED(type)
    Q_UNUSED(context)
    static QSet<QString> shown;
    if (!shown.contains(message)) {
        shown.insert(message);
        printError(message);
    }
}

QString description()
{
    QString text = i18n("Shows the user accounts and groups of this machine.") + QLatin1String("\n\n");
    text += i18n("Commands:");
    for (const Command &command : commands) {
        text += QStringLiteral("\n  %1 %2").arg(QLatin1String(command.name), -12).arg(command.summary.toString());
    }
    return text;
}

/** The command line without a command: help and version. */
int runPlain(const QStringList &arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption help = helpOption();
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")}, i18n("Show the version."));
    parser.addOptions({help, version});
    parser.setApplicationDescription(description());
    parser.addPositionalArgument(QStringLiteral("command"),
                                 i18n("One of the commands above; 'command --help' shows its options."),
                                 i18n("command [options]"));
    if (!parser.parse(arguments)) {
        return usageError(parser.errorText());
    }
    if (parser.isSet(help)) {
        return print(parser.helpText());
    }
    if (parser.isSet(version)) {
        return print(QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(), QStringLiteral(VERSION)));
    }
    return usageError(i18n("No command was given."));
}
}

int main(int argc, char **argv)
{
    const QString word = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    const Command *command = findCommand(word);
    const auto application = makeApplication(needsDisplay(command, argc, argv), argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("ormel-users"));
    KLocalizedString::setApplicationDomain(TRANSLATION_DOMAIN);
    qInstallMessageHandler(showOnce);

    if (command) {
        return run(*command, QCoreApplication::arguments());
    }
    if (word.isEmpty() || word.startsWith(QLatin1Char('-'))) {
        return runPlain(QCoreApplication::arguments());
    }
    return usageError(i18n("Unknown command '%1'.", word));
}
