/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "limitsfixtures.h"
#include "program.h"
#include "sandbox.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <array>
#include <vector>

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

// Texts that a user chose must not reach the terminal as they are.

namespace
{
constexpr char escapeSequence[] = "\x1b]0;title\x07\x1b[2J";
constexpr char c1Sequence[] = "\xc2\x9b"
                              "31m"
                              "\xc2\x85"
                              "\xc2\x9d";
constexpr char separators[] = "a\xe2\x80\xa8"
                              "b\xe2\x80\xa9"
                              "c\rd\x7f";
constexpr char html[] = "<b>bold</b><img src=x>&amp;";

/** Characters that change the reading order, as escapes, since compilers warn about them as text. */
QByteArray bidirectional()
{
    QByteArray bytes;
    for (const ushort character : {0x202e, 0x2066, 0x061c, 0x200f}) {
        bytes += QString(QChar(character)).toUtf8() + 't';
    }
    return bytes;
}

QByteArray hostileText()
{
    return QByteArray(escapeSequence) + c1Sequence + bidirectional() + separators + html;
}

/** That of a user, who gets the first rule of the limits. */
QByteArray hostileName()
{
    return "ada" + QByteArray(c1Sequence) + bidirectional();
}

QString hostileDropIn()
{
    return dropInPath(QString::fromUtf8("a" + hostileText().replace('/', '_') + "\n.conf"));
}

/** What ormel-users writes to a terminal of its own, on either channel. */
QByteArray shownOnTerminal(const QStringList &arguments)
{
    std::vector<QByteArray> words{QFile::encodeName(Program::path())};
    for (const QString &argument : arguments) {
        words.push_back(QFile::encodeName(argument));
    }
    std::vector<char *> argv;
    argv.reserve(words.size() + 1);
    for (QByteArray &word : words) {
        argv.push_back(word.data());
    }
    argv.push_back(nullptr);

    int terminal = -1;
    const pid_t pid = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (pid == 0) {
        execv(argv.front(), argv.data());
        _exit(127);
    }
    QByteArray shown;
    std::array<char, 4096> buffer{};
    for (ssize_t count = read(terminal, buffer.data(), buffer.size()); count > 0;
         count = read(terminal, buffer.data(), buffer.size())) {
        shown.append(buffer.data(), int(count));
    }
    close(terminal);
    waitpid(pid, nullptr, 0);
    return shown;
}

/** The rest of @p shown from the first thing on that acts on a terminal; empty when there is none. */
QString firstControl(const QByteArray &shown)
{
    static const QRegularExpression control(
        QStringLiteral(u"[\\x{00}-\\x{09}\\x{0b}\\x{0c}\\x{0e}-\\x{1f}\\x{7f}-\\x{9f}\\x{61c}\\x{200e}\\x{200f}"
                       "\\x{2028}-\\x{202e}\\x{2066}-\\x{2069}]|\\r(?!\\n)"));
    const QString text = QString::fromUtf8(shown);
    const int position = text.indexOf(control);
    return position < 0 ? QString() : QString::fromLatin1(text.mid(position, 20).toUtf8().toPercentEncoding());
}
}

class HostileTextsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void doesNotReachTerminal_data();
    void doesNotReachTerminal();
    void staysInJson_data();
    void staysInJson();
    void staysInJsonOfLimitsAndProblems();
    void readsNamesAsUtf8_data();
    void readsNamesAsUtf8();
};

void HostileTextsTest::init()
{
    const QByteArray text = hostileText();
    const QByteArray path = '/' + QByteArray(text).replace(':', ';');
    Sandbox::setAccounts("root:x:0:0:" + text + ":/root:/bin/sh\n" + hostileName()
                             + ":x:1000:50:" + QByteArray(100000, 'x') + "\x1b[2J:" + path + ':' + path + '\n',
                         "root:x:0:\nstaff" + text + ":x:50:ada" + c1Sequence + '\n');
    clearLimits();
    Sandbox::write(limitsPath(), "* soft core 1\n" + text + " hard nproc 2\n@" + text + " - " + text + " 3\n");
    Sandbox::write(hostileDropIn(),
                   hostileName() + " hard core 1\nbroken " + text + '\n' + QByteArray(100000, 'y') + "\x1b[2J\n");
}

void HostileTextsTest::doesNotReachTerminal_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("expected");

    const QString text = QString::fromUtf8(hostileText() + '\n');
    const QString name = QString::fromUtf8(hostileName());
    const auto row = [](const char *title, const QStringList &arguments, const char *expected) {
        QTest::newRow(title) << arguments << QByteArray(expected);
    };
    const auto limitsRow = [&row](const char *title, const QStringList &arguments) {
        row(title, QStringList(QStringLiteral("limits")) + arguments, "31m");
    };
    row("users", {QStringLiteral("users")}, "31m");
    row("users in JSON", {QStringLiteral("users"), QStringLiteral("--json")}, "31m");
    row("groups", {QStringLiteral("groups")}, "31m");
    row("groups in JSON", {QStringLiteral("groups"), QStringLiteral("--json")}, "31m");
    row("users in CSV", {QStringLiteral("users"), QStringLiteral("--csv")}, "31m");
    row("groups in CSV", {QStringLiteral("groups"), QStringLiteral("--csv")}, "31m");
    row("problems", {QStringLiteral("check")}, "31m");
    row("problems in JSON", {QStringLiteral("check"), QStringLiteral("--json")}, "31m");
    limitsRow("rules", {});
    limitsRow("rules in JSON", {QStringLiteral("--json")});
    limitsRow("rules of the parser", {QStringLiteral("--parser")});
    limitsRow("suspicious lines", {QStringLiteral("--check")});
    limitsRow("suspicious lines in JSON", {QStringLiteral("--check"), QStringLiteral("--json")});
    // The text is broken into lines, in other places by another release of the library that does it.
    row("limits of user", {QStringLiteral("limits"), QStringLiteral("--user"), name}, "core");
    limitsRow("limits of user in JSON", {QStringLiteral("--user"), name, QStringLiteral("--json")});
    limitsRow("lines of user", {QStringLiteral("--user"), name, QStringLiteral("--explain"), QStringLiteral("core")});
    limitsRow("users of line", {QStringLiteral("--rule"), hostileDropIn() + QLatin1String(":1")});
    limitsRow("unknown user", {QStringLiteral("--user"), text});
    limitsRow("unknown group", {QStringLiteral("--group"), text});
    limitsRow("unknown rule", {QStringLiteral("--rule"), text});
    row("unknown user in a list", {QStringLiteral("users"), text}, "31m");
    row("very long name", {QStringLiteral("users"), name.repeated(3000)}, "31m");
    row("unknown command", {text}, "31m");
    row("unknown option", {QStringLiteral("--") + text}, "31m");
    row("unknown option of a command", {QStringLiteral("users"), QStringLiteral("--") + text}, "31m");
    row("unexpected argument", {QStringLiteral("limits"), text}, "31m");
    row("login name", {QStringLiteral("check-name"), text}, "reject");
    row("group name", {QStringLiteral("check-group"), text}, "reject");
    row("GECOS field", {QStringLiteral("check-gecos"), text}, "accept");
    row("no such directory", {QStringLiteral("--screenshots"), QStringLiteral("/nowhere/") + text}, "31m");
}

void HostileTextsTest::doesNotReachTerminal()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, expected);

    const QByteArray shown = shownOnTerminal(arguments);
    QVERIFY2(shown.contains(expected), shown.left(1000).toPercentEncoding().constData());
    QCOMPARE(firstControl(shown), QString());
}

void HostileTextsTest::staysInJson_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("value");

    const QByteArray text = hostileText();
    QTest::newRow("GECOS field") << QStringLiteral("users") << 0 << QStringLiteral("gecos") << text;
    QTest::newRow("long GECOS field") << QStringLiteral("users") << 1 << QStringLiteral("gecos")
                                      << QByteArray(100000, 'x') + "\x1b[2J";
    QTest::newRow("home") << QStringLiteral("users") << 1 << QStringLiteral("home")
                          << '/' + QByteArray(text).replace(':', ';');
    QTest::newRow("shell") << QStringLiteral("users") << 1 << QStringLiteral("shell")
                           << '/' + QByteArray(text).replace(':', ';');
    QTest::newRow("primary group") << QStringLiteral("users") << 1 << QStringLiteral("primaryGroup") << "staff" + text;
    QTest::newRow("group") << QStringLiteral("groups") << 1 << QStringLiteral("name") << "staff" + text;
}

void HostileTextsTest::staysInJson()
{
    QFETCH(QString, command);
    QFETCH(int, index);
    QFETCH(QString, key);
    QFETCH(QByteArray, value);

    const QByteArray json = Program::run({command, QStringLiteral("--json")}).output;
    const QJsonObject record = QJsonDocument::fromJson(json).array().at(index).toObject();
    QCOMPARE(record.value(key).toString().toUtf8(), value);
}

void HostileTextsTest::staysInJsonOfLimitsAndProblems()
{
    const auto json = [](const QStringList &arguments) {
        return QJsonDocument::fromJson(Program::run(arguments + QStringList(QStringLiteral("--json"))).output);
    };
    const auto hasLine = [](const QJsonArray &lines, const QString &text) {
        return std::any_of(lines.begin(), lines.end(), [&text](const QJsonValue &line) {
            return line[QLatin1String("file")] == hostileDropIn() && line[QLatin1String("text")] == text;
        });
    };
    const QString name = QString::fromUtf8(hostileName());
    const QString limits = QStringLiteral("limits");
    const QString broken = QString::fromUtf8("broken " + hostileText());
    QVERIFY(hasLine(json({limits}).array(), broken));
    QVERIFY(hasLine(json({limits, QStringLiteral("--check")}).array(), broken));
    const QJsonDocument ofUser = json({limits, QStringLiteral("--user"), name});
    QCOMPARE(ofUser[QLatin1String("user")].toString(), name);
    const QJsonDocument ofLine = json({limits, QStringLiteral("--rule"), hostileDropIn() + QLatin1String(":1")});
    QCOMPARE(ofLine[QLatin1String("accounts")].toArray(), QJsonArray({name}));
    const QJsonArray problems = json({QStringLiteral("check")})[QLatin1String("problems")].toArray();
    QVERIFY(std::any_of(problems.begin(), problems.end(), [&name](const QJsonValue &problem) {
        return problem[QLatin1String("user")] == name;
    }));
}

void HostileTextsTest::readsNamesAsUtf8_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("expected");

    const QString name = QStringLiteral(u"j\u00fcrg");
    const QString group = QStringLiteral(u"gr\u00f6\u00dfe");
    QTest::newRow("users") << QStringList{QStringLiteral("users")}
                           << QByteArray("j\xc3\xbcrg             1000  gr\xc3\xb6\xc3\x9f"
                                         "e");
    QTest::newRow("users in JSON") << QStringList{QStringLiteral("users"), QStringLiteral("--json")}
                                   << QByteArray("\"home\": \"/home/j\xc3\xbcrg\"");
    QTest::newRow("groups") << QStringList{QStringLiteral("groups")}
                            << QByteArray("gr\xc3\xb6\xc3\x9f"
                                          "e         50  yes     j\xc3\xbcrg");
    QTest::newRow("limits of user") << QStringList{QStringLiteral("limits"), QStringLiteral("--user"), name}
                                    << QByteArray("4321");
    QTest::newRow("limits of group") << QStringList{QStringLiteral("limits"), QStringLiteral("--group"), group}
                                     << QByteArray("1234");
    QTest::newRow("rules") << QStringList{QStringLiteral("limits")} << QByteArray("User name: \"j\xc3\xbcrg\"");
    QTest::newRow("suspicious lines") << QStringList{QStringLiteral("limits"), QStringLiteral("--check")}
                                      << QByteArray("\xc3\xa4rger");
}

void HostileTextsTest::readsNamesAsUtf8()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, expected);

    Sandbox::setAccounts("j\xc3\xbcrg:x:1000:50::/home/j\xc3\xbcrg:/bin/sh\n",
                         "ormel-admin:x:27:\ngr\xc3\xb6\xc3\x9f"
                         "e:x:50:j\xc3\xbcrg\n");
    clearLimits();
    Sandbox::write(limitsPath(),
                   "j\xc3\xbcrg hard nproc 4321\n@gr\xc3\xb6\xc3\x9f"
                   "e hard nproc 1234\n\xc3\xa4rger\n");
    const Program::Result result = Program::run(arguments);
    QVERIFY2(result.output.contains(expected), result.output.constData());
    QCOMPARE(result.errors, QByteArray());
}

QTEST_GUILESS_MAIN(HostileTextsTest)

#include "hostiletextstest.moc"
