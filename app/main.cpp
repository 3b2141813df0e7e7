/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "about.h"
#include "checkcommands.h"
#include "command.h"
#include "hashcommand.h"
#include "hiddencommands.h"
#include "iconcommands.h"
#include "icons.h"
#include "limitscommands.h"
#include "listcommands.h"
#include "messagehandler.h"
#include "pickcommands.h"
#include "picturechild.h"
#include "problemscommand.h"
#include "screenshots.h"
#include "windowcommand.h"

#include <KLocalizedString>

#include <QApplication>
#include <QCommandLineParser>

#include <algorithm>
#include <memory>
#include <optional>

namespace
{
using Interface = Command::Interface;

const Command commands[] = {
    {"users", "[NAME...]", kli18n("List users."), Interface::Terminal, userListOptions, listUsers},
    {"groups", "[NAME...]", kli18n("List groups."), Interface::Terminal, groupListOptions, listGroups},
    {"check",
     "",
     kli18n("List problems with the accounts and limits of this machine."),
     Interface::Terminal,
     problemsOptions,
     listProblems},
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
     pickIcon,
     iconOutputOption()},
    {"pick-users", "", kli18n("Pick users in a dialog."), Interface::Window, pickUsersOptions, pickUsers},
    {"pick-groups", "", kli18n("Pick groups in a dialog."), Interface::Window, pickGroupsOptions, pickGroups},
};

QString screenshotsOption()
{
    return QStringLiteral("screenshots");
}

const Command *findCommand(const QString &name)
{
    const auto *const found = std::find_if(std::begin(commands), std::end(commands), [&name](const Command &command) {
        return name == QLatin1String(command.name);
    });
    return found == std::end(commands) ? nullptr : found;
}

/** The words of the command line, before there is an application that knows them. */
QStringList wordsOf(int argc, char **argv)
{
    QStringList words;
    for (int i = 1; i < argc; ++i) {
        words.append(QString::fromLocal8Bit(argv[i]));
    }
    return words;
}

bool containsAny(const QStringList &words, std::initializer_list<const char *> options)
{
    return std::any_of(
        options.begin(), options.end(), [&words](const char *option) { return words.contains(QLatin1String(option)); });
}

/** Without a command the words are options, if any. */
bool isPlain(const QStringList &words)
{
    return words.isEmpty() || words.constFirst().startsWith(QLatin1Char('-'));
}

/** Whether a window is opened; to read help or version, no display is needed. */
bool needsDisplay(const Command *command, const QStringList &words)
{
    if (containsAny(words, {"-h", "--help"})) {
        return false;
    }
    if (command) {
        return command->interface == Interface::Window;
    }
    return isPlain(words) && !containsAny(words, {"-v", "--version"});
}

bool hasDisplay(const QStringList &words)
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || containsAny(words, {"-platform", "--platform"});
}

/** Screenshots are taken without a display, and look the same with one. */
void choosePlatform(const QStringList &words)
{
    const bool screenshots = std::any_of(words.begin(), words.end(), [](const QString &word) {
        return word.startsWith(QLatin1String("--") + screenshotsOption());
    });
    if (screenshots) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

std::unique_ptr<QCoreApplication> makeApplication(bool forWindow, int &argc, char **argv)
{
    if (!forWindow) {
        return std::make_unique<QCoreApplication>(argc, argv);
    }
    Icons::useScreenResolution();
    auto application = std::make_unique<QApplication>(argc, argv);
    Icons::setFallback();
    About::setApplicationData();
    return application;
}

QString description()
{
    QString text = i18n("Shows the user accounts, groups and resource limits of this machine.") + QLatin1String("\n\n");
    text += i18n("Without a command, it opens a window.") + QLatin1String("\n\n");
    text += i18n("Commands:");
    for (const Command &command : commands) {
        text += QStringLiteral("\n  %1 %2").arg(QLatin1String(command.name), -12).arg(command.summary.toString());
    }
    return text;
}

/** The command line without a command: the main window, its pictures, help and version. */
int runPlain(const QStringList &arguments, bool hasDisplay)
{
    QCommandLineParser parser;
    const QCommandLineOption help = helpOption();
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")}, i18n("Show the version."));
    const QCommandLineOption screenshots(
        screenshotsOption(), i18n("Write pictures of every page and dialog to a directory."), i18n("directory"));
    parser.addOptions({help, version, screenshots});
    parser.setApplicationDescription(description());
    parser.addPositionalArgument(QStringLiteral("command"),
                                 i18n("One of the commands above; 'command --help' shows its options."));
    if (!parser.parse(arguments)) {
        return usageError(parser);
    }
    if (parser.isSet(help)) {
        return print(helpText(parser, i18n("[command] [options]")));
    }
    if (parser.isSet(version)) {
        return print(QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(), QStringLiteral(VERSION)));
    }
    const QStringList superfluous = parser.positionalArguments();
    if (!superfluous.isEmpty()) {
        return usageError(i18n("Unexpected argument '%1'.", superfluous.constFirst()));
    }
    if (parser.isSet(screenshots)) {
        return writeScreenshots(parser.value(screenshots));
    }
    return hasDisplay ? openWindow() : displayFailure();
}
}

int main(int argc, char **argv)
{
    if (PictureChild::isWanted(argc, argv)) {
        return PictureChild::run(argv);
    }
    QCoreApplication::setApplicationName(QStringLiteral("ormel-users"));
    KLocalizedString::setApplicationDomain(TRANSLATION_DOMAIN);
    MessageHandler::install(printError);

    const QStringList words = wordsOf(argc, argv);
    if (const std::optional<int> status = runHiddenCommand(words.value(0), argc, argv)) {
        return *status;
    }
    const Command *command = findCommand(words.value(0));
    choosePlatform(words);
    const bool opensWindow = needsDisplay(command, words);
    const bool canOpen = hasDisplay(words);
    if (opensWindow && !canOpen) {
        // Qt takes its own options out of the command line on any platform; the rest can then be checked.
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const auto application = makeApplication(opensWindow, argc, argv);
    if (command) {
        return run(*command, QCoreApplication::arguments(), canOpen);
    }
    if (isPlain(words)) {
        return runPlain(QCoreApplication::arguments(), canOpen);
    }
    return usageError(i18n("Unknown command '%1'.", words.constFirst()));
}
