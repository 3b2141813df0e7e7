/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "program.h"
#include "sandbox.h"

#include <QTest>

namespace
{
/** The environment without a display. */
QStringList noDisplay()
{
    return {QStringLiteral("QT_QPA_PLATFORM="), QStringLiteral("DISPLAY="), QStringLiteral("WAYLAND_DISPLAY=")};
}
}

/** What all commands have in common: help, wrong use, a missing display. */
class CommandLineTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsItsVersion();
    void helps_data();
    void helps();
    void refusesWrongUsage_data();
    void refusesWrongUsage();
    void needsDisplayForWindows_data();
    void needsDisplayForWindows();
    void endsWithoutCrashAtUnreachableDisplay();
    void reportsOutputThatCannotBeWritten();
};

void CommandLineTest::tellsItsVersion()
{
    const Program::Result result = Program::run({QStringLiteral("--version")});
    QCOMPARE(result.output, QByteArray("ormel-users 1.0.0\n"));
    QCOMPARE(result.status, 0);
}

void CommandLineTest::helps_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("line");

    QTest::newRow("--help") << QStringList(QStringLiteral("--help")) << QStringLiteral("users List users.");
    QTest::newRow("-h") << QStringList(QStringLiteral("-h")) << QStringLiteral("groups List groups.");
    QTest::newRow("users --help") << QStringList({QStringLiteral("users"), QStringLiteral("--help")})
                                  << QStringLiteral("--json Print JSON instead of a table.");
    QTest::newRow("pick-users --help, without a display")
        << QStringList({QStringLiteral("pick-users"), QStringLiteral("--help")})
        << QStringLiteral("-h, --help Show this help.");
    QTest::newRow("--help of the window, without a display")
        << QStringList(QStringLiteral("--help"))
        << QStringLiteral("--screenshots <directory> Write pictures of every page and dialog to a");
    const auto addUsage = [](const char *command, const char *usage) {
        QTest::addRow("usage of %s", command)
            << QStringList({QString::fromLatin1(command), QStringLiteral("--help")}) << QString::fromLatin1(usage);
    };
    addUsage("users", "Usage: ormel-users users [options] [NAME...]");
    addUsage("check", "Usage: ormel-users check [options]");
    addUsage("check-name", "Usage: ormel-users check-name [options] NAME");
    addUsage("pick-icon", "Usage: ormel-users pick-icon [options] --output OUT.png [FILE]");
    QTest::newRow("usage") << QStringList(QStringLiteral("--help"))
                           << QStringLiteral("Usage: ormel-users [command] [options]");
    QTest::newRow("groups -h") << QStringList({QStringLiteral("groups"), QStringLiteral("-h")})
                               << QStringLiteral("--json Print JSON instead of a table.");
}

void CommandLineTest::helps()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, line);

    const Program::Result result = Program::run(
        Program::path(), arguments, {}, {QStringLiteral("QT_QPA_PLATFORM=xcb"), QStringLiteral("DISPLAY=")});
    const QStringList output = Program::lines(result.output);
    QStringList help;
    for (const QString &helpLine : output) {
        help.append(helpLine.simplified());
    }
    QVERIFY2(help.contains(line), result.output.constData());
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.status, 0);
}

void CommandLineTest::refusesWrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("message");

    const auto add = [](const char *arguments, const char *program, const char *message) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments).split(QLatin1Char(' '))
                                 << QString::fromLatin1(program) << QString::fromLatin1(message);
    };
    add("bogus", "ormel-users", "Unknown command 'bogus'.");
    add("--bogus", "ormel-users", "There is no option '--bogus'.");
    add("-x", "ormel-users", "There is no option '-x'.");
    add("users --bogus", "ormel-users users", "There is no option '--bogus'.");
    add("groups --administrators", "ormel-users groups", "There is no option '--administrators'.");
    add("pick-users --bogus", "ormel-users pick-users", "There is no option '--bogus'.");
    add("pick-groups --user", "ormel-users pick-groups", "Missing value after '--user'.");
    add("pick-icon", "ormel-users pick-icon", "The option --output is missing.");
    add("pick-icon --output= face.png", "ormel-users pick-icon", "The option --output is missing.");
    add("hash secret", "ormel-users hash", "Unexpected argument 'secret'.");
    add("check-name", "ormel-users check-name", "The argument NAME is missing.");
    add("users --json --csv", "ormel-users users", "Only one of --json and --csv can be given.");
    add("users --ordinary --system",
        "ormel-users users",
        "Only one of --ordinary, --system and --administrators can be given.");
    add("groups --ordinary --system", "ormel-users groups", "Only one of --ordinary and --system can be given.");
    add("groups --columns name,uid",
        "ormel-users groups",
        "--columns: There is no column 'uid'. The columns are "
        "name,gid,members,explicitMembers,primaryMembers,system.");
}

/** With or without a display. */
void CommandLineTest::refusesWrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, program);
    QFETCH(QString, message);

    for (const QStringList &display : {QStringList(), noDisplay()}) {
        const Program::Result result = Program::run(Program::path(), arguments, {}, display);
        QCOMPARE(Program::lines(result.errors),
                 QStringList({QStringLiteral("%1: %2").arg(program, message),
                              QStringLiteral("%1: Try '%1 --help'.").arg(program)}));
        QCOMPARE(result.output, QByteArray());
        QCOMPARE(result.status, 2);
    }
}

void CommandLineTest::needsDisplayForWindows_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("the main window") << QStringList();
    QTest::newRow("a dialog") << QStringList(QStringLiteral("pick-users"));
    QTest::newRow("an option of Qt") << QStringList({QStringLiteral("pick-users"), QStringLiteral("-reverse")});
}

void CommandLineTest::needsDisplayForWindows()
{
    QFETCH(QStringList, arguments);

    const Program::Result result = Program::run(Program::path(), arguments, {}, noDisplay());
    QCOMPARE(
        Program::lines(result.errors),
        QStringList(QStringLiteral("ormel-users: There is no display: neither DISPLAY nor WAYLAND_DISPLAY is set.")));
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.status, 1);
}

void CommandLineTest::endsWithoutCrashAtUnreachableDisplay()
{
    const QStringList unreachable{QStringLiteral("QT_QPA_PLATFORM=xcb"), QStringLiteral("DISPLAY=:987")};
    const Program::Result result = Program::run(Program::path(), {}, {}, unreachable);
    QVERIFY2(result.errors.contains("could not connect to display :987"), result.errors.constData());
    QCOMPARE(result.status, 1);
}

void CommandLineTest::reportsOutputThatCannotBeWritten()
{
    Sandbox::setAccounts("root:x:0:0:root:/root:/bin/sh\n", "root:x:0:\normel-admin:x:27:\n");
    const Program::Result result =
        Program::run(QStringLiteral("/bin/sh"),
                     {QStringLiteral("-c"), QStringLiteral("exec \"$0\" groups >/dev/full"), Program::path()});
    QCOMPARE(Program::lines(result.errors),
             QStringList(QStringLiteral("ormel-users: Cannot write the output: No space left on device")));
    QCOMPARE(result.status, 1);
}

QTEST_GUILESS_MAIN(CommandLineTest)

#include "commandlinetest.moc"
