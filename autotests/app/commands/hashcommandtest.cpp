/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "program.h"
#include "terminalsession.h"

#include <QRegularExpression>
#include <QTest>

#include <csignal>

#include <crypt.h>
#include <sys/wait.h>

namespace
{
QString program()
{
    return Program::path();
}

Program::Result hash(const QByteArray &input, const QStringList &options = {}, const QStringList &variables = {})
{
    return Program::run(program(), QStringList(QStringLiteral("hash")) + options, input, variables);
}

/**
 * The hash that openssl makes of @p password with the salt of @p hash; openssl does not take an
 * empty password, so the C library hashes that one.
 */
QByteArray otherHash(const QByteArray &password, const QByteArray &hash)
{
    if (password.isEmpty()) {
        return QByteArray(crypt("", hash.trimmed().constData())) + '\n';
    }
    const QString salt = QString::fromLatin1(hash.split('$').value(2));
    const QStringList arguments{
        QStringLiteral("passwd"),
        QStringLiteral("-6"),
        QStringLiteral("-salt"),
        salt,
        QString::fromUtf8(password),
    };
    return Program::run(QStringLiteral("openssl"), arguments).output;
}
}

class HashCommandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hashesFirstLine_data();
    void hashesFirstLine();
    void waitsForWholeLine();
    void hashesByGostMethod();
    void givesKnownGostHash();
    void refusesInput_data();
    void refusesInput();
    void failsWhenNotHashed_data();
    void failsWhenNotHashed();

    void doesNotShowWhatIsTyped();
    void takesNoEmptyPasswordFromTerminal_data();
    void takesNoEmptyPasswordFromTerminal();
    void restoresTerminalOnSignals_data();
    void restoresTerminalOnSignals();
    void restoresTerminalOnInterruptKey();
    void canBeStoppedWhileTyping();
    void leavesIgnoredSignalsIgnored();
};

void HashCommandTest::hashesFirstLine_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("password");

    QTest::newRow("one line") << QByteArray("secret\n") << QByteArray("secret");
    QTest::newRow("no line end") << QByteArray("secret") << QByteArray("secret");
    QTest::newRow("two lines") << QByteArray("secret\nother\n") << QByteArray("secret");
    QTest::newRow("empty line") << QByteArray("\n") << QByteArray("");
    QTest::newRow("blanks") << QByteArray("  two  words  \n") << QByteArray("  two  words  ");
    QTest::newRow("UTF-8") << QByteArray("Gr\xc3\xbc\xc3\x9f\x65 \xf0\x9f\x99\x82\n")
                           << QByteArray("Gr\xc3\xbc\xc3\x9f\x65 \xf0\x9f\x99\x82");
}

void HashCommandTest::hashesFirstLine()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, password);

    for (const char *locale : {"LC_ALL=C.UTF-8", "LC_ALL=C"}) {
        const Program::Result result = hash(input, {}, {QLatin1String(locale)});
        QCOMPARE(result.errors, QByteArray());
        QCOMPARE(result.status, 0);
        QVERIFY2(QRegularExpression(QStringLiteral("\\A\\$6\\$[A-Za-z0-9./]{16}\\$[A-Za-z0-9./]{86}\\n\\z"))
                     .match(QString::fromLatin1(result.output))
                     .hasMatch(),
                 result.output.constData());
        QCOMPARE(otherHash(password, result.output), result.output);
        QVERIFY(otherHash("x" + password, result.output) != result.output);
    }
}

void HashCommandTest::waitsForWholeLine()
{
    const QString command = QStringLiteral("(printf sec; sleep 0.3; printf 'ret\\nother') | \"$0\" hash");
    const Program::Result result = Program::run(QStringLiteral("sh"), {QStringLiteral("-c"), command, program()});
    QCOMPARE(result.status, 0);
    QCOMPARE(otherHash("secret", result.output), result.output);
}

void HashCommandTest::hashesByGostMethod()
{
    const Program::Result result = hash("secret\n", {QStringLiteral("--gost")});
    QCOMPARE(result.status, 0);
    QVERIFY2(QRegularExpression(QStringLiteral("\\A\\$gost12512hash\\$[A-Za-z0-9./]{16}\\$[A-Za-z0-9./]{86}\\n\\z"))
                 .match(QString::fromLatin1(result.output))
                 .hasMatch(),
             result.output.constData());
}

void HashCommandTest::givesKnownGostHash()
{
    const Program::Result result = hash("password\n",
                                        {QStringLiteral("--gost")},
                                        {
                                            QStringLiteral("LD_PRELOAD=" FIXED_SALT_LIBRARY),
                                            QStringLiteral("FIXED_SALT=KrmcHbeQmxiP/Ipl"),
                                            QStringLiteral("ASAN_OPTIONS=verify_asan_link_order=0"),
                                        });
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(result.output,
             QByteArray("$gost12512hash$KrmcHbeQmxiP/Ipl$uNmEQvpJ7B0jTcCkIh1IQEIRoyAXzliyt2S7VAz/"
                        "xA8GNjBbFeE.c98elVBwad6y40qPNKYqYNkWZJFxpGw620\n"));
}

void HashCommandTest::refusesInput_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("message");

    QTest::newRow("nothing") << QByteArray() << QByteArray("ormel-users: No password was given.\n");
    QTest::newRow("Latin-1") << QByteArray("Gr\xfc\xdf\x65\n")
                             << QByteArray("ormel-users: The password is not UTF-8 text.\n");
    QTest::newRow("null character") << QByteArray("a\0b\n", 4)
                                    << QByteArray("ormel-users: The password is not UTF-8 text.\n");
}

void HashCommandTest::refusesInput()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, message);

    const Program::Result result = hash(input);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.errors, message);
    QCOMPARE(result.status, 1);
}

void HashCommandTest::failsWhenNotHashed_data()
{
    QTest::addColumn<QStringList>("options");

    QTest::newRow("SHA-512") << QStringList();
    QTest::newRow("GOST") << QStringList(QStringLiteral("--gost"));
}

void HashCommandTest::failsWhenNotHashed()
{
    QFETCH(QStringList, options);

    const Program::Result result = hash(QByteArray(600, 'a') + '\n', options);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.errors, QByteArray("ormel-users: The password cannot be hashed.\n"));
    QCOMPARE(result.status, 1);
}

void HashCommandTest::doesNotShowWhatIsTyped()
{
    TerminalSession session("exec \"$0\" hash");
    QVERIFY(session.hasStarted());
    QVERIFY(session.waitFor("Password: "));
    QVERIFY(!session.echoes());
    session.type("secret\n");
    const int status = session.end();
    QVERIFY(WIFEXITED(status));
    QCOMPARE(WEXITSTATUS(status), 0);
    QVERIFY(session.echoes());
    QVERIFY(!session.shown().contains("secret"));

    const QByteArrayList lines = session.shown().split('\n');
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(0), QByteArray("Password: \r"));
    const QByteArray hash = lines.at(1).trimmed();
    QCOMPARE(otherHash("secret", hash).trimmed(), hash);
}

void HashCommandTest::takesNoEmptyPasswordFromTerminal_data()
{
    QTest::addColumn<QByteArray>("keys");

    QTest::newRow("line end") << QByteArray("\n");
    QTest::newRow("end of input") << QByteArray("\x04");
}

void HashCommandTest::takesNoEmptyPasswordFromTerminal()
{
    QFETCH(QByteArray, keys);

    TerminalSession session("exec \"$0\" hash");
    QVERIFY(session.waitFor("Password: "));
    session.type(keys);
    const int status = session.end();
    QCOMPARE(WEXITSTATUS(status), 1);
    QVERIFY(session.shown().contains("No password was given."));
    QVERIFY(!session.shown().contains('$'));
    QVERIFY(session.echoes());
}

void HashCommandTest::restoresTerminalOnSignals_data()
{
    QTest::addColumn<int>("signal");

    QTest::newRow("SIGHUP") << SIGHUP;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGQUIT") << SIGQUIT;
    QTest::newRow("SIGTERM") << SIGTERM;
}

void HashCommandTest::restoresTerminalOnSignals()
{
    QFETCH(int, signal);

    TerminalSession session("exec \"$0\" hash");
    QVERIFY(session.waitFor("Password: "));
    QVERIFY(!session.echoes());
    QVERIFY(session.waitForSleep());
    session.kill(signal);
    const int status = session.end();
    QVERIFY(WIFSIGNALED(status));
    QCOMPARE(WTERMSIG(status), signal);
    QVERIFY(session.echoes());
}

void HashCommandTest::restoresTerminalOnInterruptKey()
{
    TerminalSession session("exec \"$0\" hash");
    QVERIFY(session.waitFor("Password: "));
    QVERIFY(session.waitForSleep());
    session.type("secr\x03");
    const int status = session.end();
    QVERIFY(WIFSIGNALED(status));
    QCOMPARE(WTERMSIG(status), SIGINT);
    QVERIFY(session.echoes());
}

void HashCommandTest::canBeStoppedWhileTyping()
{
    // Only a job of a shell with job control can be stopped.
    TerminalSession session("set -m; \"$0\" hash; stty -a | grep -o ' echo '; echo stopped; fg; exit $?");
    QVERIFY(session.waitFor("Password: "));
    QVERIFY(session.waitForSleep());
    session.type("sec\x1a");
    QVERIFY(session.waitFor("stopped\r\n"));
    QVERIFY(session.shown().contains(" echo \r\n"));
    QVERIFY(session.waitFor("hash\r\nPassword: "));
    QVERIFY(!session.echoes());
    session.type("secret\n");
    const int status = session.end();
    QCOMPARE(WEXITSTATUS(status), 0);
    const QByteArray hash = session.shown().trimmed().split('\n').last();
    QCOMPARE(otherHash("secret", hash).trimmed(), hash);
}

void HashCommandTest::leavesIgnoredSignalsIgnored()
{
    TerminalSession session("trap '' HUP; exec \"$0\" hash");
    QVERIFY(session.waitFor("Password: "));
    QVERIFY(session.waitForSleep());
    session.kill(SIGHUP);
    // It asks again, since what was typed before is lost.
    QVERIFY(session.waitFor("Password: \r\nPassword: "));
    session.type("secret\n");
    const int status = session.end();
    QVERIFY(WIFEXITED(status));
    QCOMPARE(WEXITSTATUS(status), 0);
    const QByteArray hash = session.shown().trimmed().split('\n').last();
    QCOMPARE(otherHash("secret", hash).trimmed(), hash);
}

QTEST_GUILESS_MAIN(HashCommandTest)

#include "hashcommandtest.moc"
