/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "program.h"
#include "sandbox.h"

#include <QTest>

namespace
{
Program::Result run(const QStringList &arguments)
{
    return Program::run(Program::path(), arguments);
}
}

class CheckCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void tellsStateAndRule_data();
    void tellsStateAndRule();
    void tellsPatternOfConfiguration();
    void rejectsWithInvalidPattern();
    void wantsOneArgument_data();
    void wantsOneArgument();
};

void CheckCommandsTest::init()
{
    Sandbox::remove(adduserConfPath());
}

void CheckCommandsTest::tellsStateAndRule_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitStatus");
    QTest::addColumn<QByteArray>("output");

    const auto add = [](const char *command, const QString &text, int exitStatus, const char *output) {
        QTest::addRow("%s '%s'", command, qPrintable(text))
            << QStringList({QLatin1String(command), text}) << exitStatus << QByteArray(output);
    };
    const auto letters = [](int count) { return QStringLiteral("a").repeated(count); };

    add("check-name", QStringLiteral("user1"), 0, "accepted: the whole text has to match [a-z][a-z0-9\\_\\-]*\n");
    add("check-name", QString(), 1, "unfinished: the whole text has to match [a-z][a-z0-9\\_\\-]*\n");
    add("check-name", QStringLiteral("user$"), 2, "rejected: the whole text has to match [a-z][a-z0-9\\_\\-]*\n");
    add("check-name", letters(32), 0, "accepted: the whole text has to match [a-z][a-z0-9\\_\\-]*\n");
    add("check-name", letters(33), 2, "rejected: a name has at most 32 characters\n");
    add("check-group", QStringLiteral("machine$"), 0, "accepted: the whole text has to match [a-z_][a-z0-9_-]*[$]?\n");
    add("check-group", QStringLiteral("1grp"), 2, "rejected: the whole text has to match [a-z_][a-z0-9_-]*[$]?\n");
    add("check-group", letters(33), 2, "rejected: a name has at most 32 characters\n");
    add("check-gecos",
        QStringLiteral("a,b,c,d,e"),
        0,
        "accepted: the whole text has to match [^,]*(,[^,]*(,[^,]*(,[^,]*(,[^,]*)?)?)?)?\n");
    add("check-gecos",
        QStringLiteral("a,b,c,d,e,f"),
        2,
        "rejected: the whole text has to match [^,]*(,[^,]*(,[^,]*(,[^,]*(,[^,]*)?)?)?)?\n");
    add("check-gecos",
        letters(33),
        0,
        "accepted: the whole text has to match [^,]*(,[^,]*(,[^,]*(,[^,]*(,[^,]*)?)?)?)?\n");
}

void CheckCommandsTest::tellsStateAndRule()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitStatus);
    QFETCH(QByteArray, output);

    const Program::Result result = run(arguments);
    QCOMPARE(result.output, output);
    QCOMPARE(result.status, exitStatus);
    QCOMPARE(result.errors, QByteArray());
}

void CheckCommandsTest::tellsPatternOfConfiguration()
{
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"[a-z]+-[0-9]\"\n");
    const Program::Result result = run({QStringLiteral("check-name"), QStringLiteral("user")});
    QCOMPARE(result.output, QByteArray("unfinished: the whole text has to match [a-z]+-[0-9]\n"));
    QCOMPARE(result.status, 1);
}

void CheckCommandsTest::rejectsWithInvalidPattern()
{
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"[a-z\"\n");
    const Program::Result result = run({QStringLiteral("check-name"), QStringLiteral("user")});
    QCOMPARE(result.output, QByteArray("rejected: the whole text has to match [a-z\n"));
    QCOMPARE(result.status, 2);
}

void CheckCommandsTest::wantsOneArgument_data()
{
    QTest::addColumn<QStringList>("operands");

    QTest::newRow("none") << QStringList();
    QTest::newRow("two") << QStringList({QStringLiteral("one"), QStringLiteral("two")});
}

void CheckCommandsTest::wantsOneArgument()
{
    QFETCH(QStringList, operands);

    for (const char *command : {"check-name", "check-group", "check-gecos"}) {
        const Program::Result result = run(QStringList(QLatin1String(command)) + operands);
        QCOMPARE(result.output, QByteArray());
        QVERIFY(result.errors.contains("argument"));
        QCOMPARE(result.status, 2);
    }
}

QTEST_GUILESS_MAIN(CheckCommandsTest)

#include "checkcommandstest.moc"
