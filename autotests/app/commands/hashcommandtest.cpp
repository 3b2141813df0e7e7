/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "program.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <csignal>

#include <crypt.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

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
 * The hash by openssl of @p password with the salt of @p hash. For an empty password, which openssl refuses, the
 * hash by the C library.
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

/** A shell command on its own terminal, by default the hash command. */
class TerminalSession
{
public:
    explicit TerminalSession(const char *command = "exec \"$0\" hash")
    {
        const QByteArray path = QFile::encodeName(program());
        m_pid = forkpty(&m_terminal, nullptr, nullptr, nullptr);
        if (m_pid == 0) {
            execlp("bash", "bash", "-c", command, path.constData(), nullptr);
            _exit(127);
        }
    }

    ~TerminalSession()
    {
        if (m_pid > 0) {
            ::kill(m_pid, SIGKILL);
            waitpid(m_pid, nullptr, 0);
        }
        close(m_terminal);
    }

    bool hasStarted() const
    {
        return m_pid > 0;
    }

    /** Reads until @p text is shown. Returns false if the program ended or was silent for too long. */
    bool waitFor(const QByteArray &text)
    {
        while (!m_shown.contains(text)) {
            if (!read()) {
                return false;
            }
        }
        return true;
    }

    void type(const QByteArray &keys) const
    {
        if (::write(m_terminal, keys.constData(), size_t(keys.size())) != keys.size()) {
            qFatal("Cannot write to the terminal");
        }
    }

    bool echoes() const
    {
        termios settings = {};
        tcgetattr(m_terminal, &settings);
        return settings.c_lflag & tcflag_t(ECHO);
    }

    void kill(int signal) const
    {
        ::kill(m_pid, signal);
    }

    /** Waits for the end. Returns the status of waitpid(). */
    int end()
    {
        while (read()) { }
        int status = -1;
        waitpid(m_pid, &status, 0);
        m_pid = -1;
        return status;
    }

    QByteArray shown() const
    {
        return m_shown;
    }

private:
    Q_DISABLE_COPY(TerminalSession)

    bool read()
    {
        pollfd descriptor = {m_terminal, POLLIN, 0};
        char buffer[512];
        if (poll(&descriptor, 1, 10000) <= 0) {
            return false;
        }
        const ssize_t count = ::read(m_terminal, buffer, sizeof(buffer));
        if (count <= 0) {
            return false;
        }
        m_shown.append(buffer, int(count));
        return true;
    }

    pid_t m_pid = -1;
    int m_terminal = -1;
    QByteArray m_shown;
};
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
    void failsWhenNotHashed();

    void doesNotShowWhatIsTyped();
    void takesEmptyPasswordFromTerminal();
    void restoresTerminalOnSignals_data();
    void restoresTerminalOnSignals();
    void restoresTerminalOnInterruptKey();
    void doesNotStopWhileTyping();
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

void HashCommandTest::failsWhenNotHashed()
{
    const Program::Result result = hash(QByteArray(600, 'a') + '\n');
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.errors, QByteArray("ormel-users: The password cannot be hashed.\n"));
    QCOMPARE(result.status, 1);
}

void HashCommandTest::doesNotShowWhatIsTyped()
{
    TerminalSession session;
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

void HashCommandTest::takesEmptyPasswordFromTerminal()
{
    TerminalSession session;
    QVERIFY(session.waitFor("Password: "));
    session.type("\n");
    session.end();
    const QByteArray hash = session.shown().split('\n').value(1).trimmed();
    QCOMPARE(otherHash("", hash), QByteArray(hash + '\n'));
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

    TerminalSession session;
    QVERIFY(session.waitFor("Password: "));
    QVERIFY(!session.echoes());
    session.kill(signal);
    const int status = session.end();
    QVERIFY(WIFSIGNALED(status));
    QCOMPARE(WTERMSIG(status), signal);
    QVERIFY(session.echoes());
}

void HashCommandTest::restoresTerminalOnInterruptKey()
{
    TerminalSession session;
    QVERIFY(session.waitFor("Password: "));
    session.type("secr\x03");
    const int status = session.end();
    QVERIFY(WIFSIGNALED(status));
    QCOMPARE(WTERMSIG(status), SIGINT);
    QVERIFY(session.echoes());
}

void HashCommandTest::doesNotStopWhileTyping()
{
    // Only a job of a shell with job control can be stopped.
    TerminalSession session("set -m; \"$0\" hash; exit $?");
    QVERIFY(session.waitFor("Password: "));
    session.type("sec\x1aret\n");
    const int status = session.end();
    QVERIFY(WIFEXITED(status));
    QVERIFY(session.shown().contains("$6$"));
}

QTEST_GUILESS_MAIN(HashCommandTest)

#include "hashcommandtest.moc"
