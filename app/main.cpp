/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "about.h"
#include "checkcommands.h"
#include "command.h"
#include "hashcommand.h"
#include "iconcommands.h"
#include "icons.h"
#include "limitscommands.h"
#include "listcommands.h"
#include "pickcommands.h"
#include "picturechild.h"
#include "problemscommand.h"
#include "recordtext.h"
#include "screenshots.h"
#include "windowcommand.h"

#include <KLocalizedString>

#include <QApplication>
#include <QCommandLineParser>
#include <QMutex>
#include <QSet>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace
{
using Interface = Command::Interface;

const Command commands[] = {
    {"users", "", kli18n("List the user accounts of /etc/passwd."), Interface::Terminal, listOptions, listUsers},
    {"groups", "", kli18n("List the groups of /etc/group."), Interface::Terminal, listOptions, listGroups},
    {"check",
     "",
     kli18n("List problems with the accounts of this machine."),
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
     pickIcon},
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

/** Whether a message is there for the first time. Messages come from any thread. */
bool isNew(const QString &message)
{
    static QMutex mutex;
    static QSet<QString> shown;
    const QMutexLocker locker(&mutex);
    const bool known = shown.contains(message);
    shown.insert(message);
    return !known;
}

/**
 * Shows each message of the library once: a missing administrators group is reported for every
 * account. What is fatal to the toolkit, as a display that cannot be reached, ends the program
 * without a core dump.
 */
void showOnce(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    if (isNew(message)) {
        // Names in them are those of the records. What is fatal to Qt has several lines.
        printError(type == QtFatalMsg ? message.simplified() : RecordText::decode(message));
    }
    if (type == QtFatalMsg) {
        std::_Exit(Failure);
    }
}

QString description()
{
    QString text = i18n("Shows the user accounts, groups and resource limits of this machine.") + QLatin1String("\n\n");
    text += i18n("Without a command a window opens.") + QLatin1String("\n\n");
    text += i18n("Commands:");
    for (const Command &command : commands) {
        text += QStringLiteral("\n  %1 %2").arg(QLatin1String(command.name), -12).arg(command.summary.toString());
    }
    return text;
}

/** The command line without a command: the main window, its pictures, help and version. */
int runPlain(const QStringList &arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption help = helpOption();
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")}, i18n("Show the version."));
    const QCommandLineOption screenshots(
        screenshotsOption(), i18n("Write pictures of every page and dialog to a directory."), i18n("directory"));
    parser.addOptions({help, version, screenshots});
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
    const QStringList superfluous = parser.positionalArguments();
    if (!superfluous.isEmpty()) {
        return usageError(i18n("Unexpected argument '%1'.", superfluous.constFirst()));
    }
    return parser.isSet(screenshots) ? writeScreenshots(parser.value(screenshots)) : openWindow();
}
}

int main(int argc, char **argv)
{
    if (PictureChild::isWanted(argc, argv)) {
        return PictureChild::run(argv);
    }
    QCoreApplication::setApplicationName(QStringLiteral("ormel-users"));
    KLocalizedString::setApplicationDomain(TRANSLATION_DOMAIN);
    qInstallMessageHandler(showOnce);

    const QStringList words = wordsOf(argc, argv);
    const Command *command = findCommand(words.value(0));
    choosePlatform(words);
    const bool opensWindow = needsDisplay(command, words);
    const bool canOpen = hasDisplay(words);
    const auto application = makeApplication(opensWindow && canOpen, argc, argv);
    if (opensWindow && !canOpen) {
        return failure(i18n("There is no display: neither DISPLAY nor WAYLAND_DISPLAY is set."));
    }
    if (command) {
        return run(*command, QCoreApplication::arguments());
    }
    if (isPlain(words)) {
        return runPlain(QCoreApplication::arguments());
    }
    return usageError(i18n("Unknown command '%1'.", words.constFirst()));
}
