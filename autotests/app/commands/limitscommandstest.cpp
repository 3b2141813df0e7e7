/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsprogram.h"

#include <QTest>

#include <sys/stat.h>

class LimitsCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void listsLinesWithTheirMeaning();
    void describesDomains_data();
    void describesDomains();
    void tellsWhatParserDoesNotSee_data();
    void tellsWhatParserDoesNotSee();
    void showsSessionOfUser();
    void showsMembersOfGroup();
    void tellsThatNoLimitsAreSet();
    void tellsThatNoSessionIsOpened();
    void explainsItem();
    void listsAccountsOfRule();
    void failsForUnknownNames_data();
    void failsForUnknownNames();
    void marksAnswerWithoutFile_data();
    void marksAnswerWithoutFile();
    void failsOnFindings();
    void approvesOfGoodFiles();
    void showsParserRules();
    void showsParserValues();
    void refusesOptionsThatDoNotGoTogether_data();
    void refusesOptionsThatDoNotGoTogether();
};

void LimitsCommandsTest::init()
{
    setLimitsOfPupils();
}

void LimitsCommandsTest::listsLinesWithTheirMeaning()
{
    Sandbox::write(dropInPath(QStringLiteral("old")), "* soft data 1\n");
    Sandbox::write(dropInPath(QStringLiteral("x.conf")), "\n1000: - nofile\n\nalice -\n");
    const Result result = limits({});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output.count(QLatin1Char('\n')), 1 + 6);
    QCOMPARE(row(result.output, "/etc/security/limits.conf:2"),
             QStringLiteral("/etc/security/limits.conf:2|@pupils - nproc 60|"
                            "Group name: \"pupils\": Maximum number of processes."));
    QCOMPARE(row(result.output, "/etc/security/limits.d/old:1"),
             QStringLiteral("/etc/security/limits.d/old:1|* soft data 1|"
                            "PAM does not read this file: its name does not end in .conf"));
    QCOMPARE(row(result.output, "/etc/security/limits.d/x.conf:2"),
             QStringLiteral("/etc/security/limits.d/x.conf:2|1000: - nofile|"
                            "PAM ignores this line: it has fewer than four columns"));
    QCOMPARE(row(result.output, "/etc/security/limits.d/x.conf:4"),
             QStringLiteral("/etc/security/limits.d/x.conf:4|alice -|User name: \"alice\": exempt from all limits"));
}

void LimitsCommandsTest::describesDomains_data()
{
    QTest::addColumn<QString>("description");

    QTest::newRow("%") << QStringLiteral("All logins together");
    QTest::newRow("%pupils") << QStringLiteral("All logins of members of the group 'pupils' together");
    QTest::newRow("*") << QStringLiteral("All users");
    QTest::newRow("alice") << QStringLiteral("User name: \"alice\"");
    QTest::newRow("@pupils") << QStringLiteral("Group name: \"pupils\"");
    QTest::newRow("1000:") << QStringLiteral("Users with UID greater than or equal to 1000");
    QTest::newRow(":7") << QStringLiteral("User with UID equal to 7");
    QTest::newRow("@50:60") << QStringLiteral("Group GID range from 50 to 60");
}

void LimitsCommandsTest::describesDomains()
{
    QFETCH(QString, description);

    const QString line = QString::fromLatin1(QTest::currentDataTag()) + QLatin1String(" - maxlogins 3");
    Sandbox::write(limitsPath(), line.toLatin1() + '\n');
    QCOMPARE(row(limits({}).output, "/etc/security/limits.conf:1"),
             QStringLiteral("/etc/security/limits.conf:1|") + line + QLatin1Char('|') + description
                 + QLatin1String(": Maximum number of logins for this user."));
}

void LimitsCommandsTest::tellsWhatParserDoesNotSee_data()
{
    QTest::addColumn<QString>("reason");

    QTest::newRow("alice -") << QStringLiteral("an exemption from all limits");
    QTest::newRow("1000: hard nproc 5") << QStringLiteral("a range of IDs, which it takes for a name");
    QTest::newRow("@pupils - rss 3") << QStringLiteral("the item rss");
    QTest::newRow("alice - cpu 5#") << QStringLiteral("the value, which it reads as 0");
    QTest::newRow("alice - cpu unlimited# x") << QStringLiteral("the value, which it reads as 0");
    QTest::newRow("alice - cpu 5 # x") << QString();
    QTest::newRow("alice - chroot /srv") << QString();
    QTest::newRow("alice - chroot /Srv") << QStringLiteral("the value, which it reads as /Srv");
}

void LimitsCommandsTest::tellsWhatParserDoesNotSee()
{
    QFETCH(QString, reason);

    Sandbox::write(limitsPath(), QByteArray(QTest::currentDataTag()) + '\n');
    const Result result = limits({QStringLiteral("--check")});
    const QString statement =
        QStringLiteral("PAM applies this; programs that read it through LimitsParser do not see it: %1|").arg(reason);
    QCOMPARE(result.output.count(QLatin1String("LimitsParser")), int(!reason.isEmpty()));
    QVERIFY2(reason.isEmpty() || row(result.output, "/etc/security/limits.conf:1").contains(statement),
             qPrintable(result.output));
}

void LimitsCommandsTest::showsSessionOfUser()
{
    const Result result = limitsOf("--user", "alice");
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output.count(QLatin1Char('\n')), 1 + 20);
    QCOMPARE(row(result.output, "core"),
             QStringLiteral("core|0|not set|* /etc/security/limits.conf:1|Maximum core file size."));
    QCOMPARE(row(result.output, "nproc"),
             QStringLiteral("nproc|50|60|alice /etc/security/limits.conf:3, @pupils /etc/security/limits.conf:2|"
                            "Maximum number of processes."));
    QCOMPARE(row(result.output, "memlock"),
             QStringLiteral("memlock|not set|not set|Maximum locked-in-memory address space."));
}

void LimitsCommandsTest::showsMembersOfGroup()
{
    const Result result = limitsOf("--group", "pupils");
    QCOMPARE(result.status, 0);
    QCOMPARE(row(result.output, "nproc"),
             QStringLiteral("nproc|60|60|@pupils /etc/security/limits.conf:2|Maximum number of processes."));
    QCOMPARE(row(limitsOf("--group", "alice").output, "nproc"),
             QStringLiteral("nproc|not set|not set|Maximum number of processes."));
}

void LimitsCommandsTest::tellsThatNoLimitsAreSet()
{
    Sandbox::write(dropInPath(QStringLiteral("x.conf")), "@pupils -\n");
    const Result result = limitsOf("--user", "alice");
    QCOMPARE(result.status, 0);
    QVERIFY(result.output.startsWith(QLatin1String("No limits are set: @pupils /etc/security/limits.d/x.conf:1\n")));
    QCOMPARE(result.output.count(QLatin1String("not set")), 2 * 20);
}

void LimitsCommandsTest::tellsThatNoSessionIsOpened()
{
    Sandbox::write(dropInPath(QStringLiteral("x.conf")), "alice - maxlogins 0\n");
    const Result result = limitsOf("--user", "alice");
    QVERIFY(result.output.startsWith(
        QLatin1String("No session can be opened: /etc/security/limits.d/x.conf:1 allows no logins\n")));
}

void LimitsCommandsTest::explainsItem()
{
    Sandbox::write(dropInPath(QStringLiteral("x.conf")), "alice soft nproc 40\n* - nproc 70\n");
    const Result result = limitsOf("--user", "alice", {explain(), QStringLiteral("NPROC")});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output.count(QLatin1Char('\n')), 1 + 4);
    QCOMPARE(row(result.output, "/etc/security/limits.conf:2"),
             QStringLiteral("/etc/security/limits.conf:2|@pupils - nproc 60|"
                            "a domain of higher rank decides: /etc/security/limits.conf:3|decides"));
    QCOMPARE(row(result.output, "/etc/security/limits.conf:3"),
             QStringLiteral("/etc/security/limits.conf:3|alice soft nproc 50|"
                            "a later line decides: /etc/security/limits.d/x.conf:1"));
    QCOMPARE(row(result.output, "/etc/security/limits.d/x.conf:1"),
             QStringLiteral("/etc/security/limits.d/x.conf:1|alice soft nproc 40|decides"));
    QCOMPARE(row(result.output, "/etc/security/limits.d/x.conf:2"),
             QStringLiteral("/etc/security/limits.d/x.conf:2|* - nproc 70|"
                            "a domain of higher rank decides: /etc/security/limits.d/x.conf:1|"
                            "lost together with the soft limit: /etc/security/limits.d/x.conf:1"));
    QCOMPARE(limitsOf("--user", "alice", {explain(), QStringLiteral("as")}).output,
             QStringLiteral("No line sets as.\n"));

    Sandbox::write(limitsPath(), "alice -\n@pupils - nproc 60\n");
    QCOMPARE(
        row(limitsOf("--user", "alice", {explain(), QStringLiteral("nproc")}).output, "/etc/security/limits.conf:2"),
        QStringLiteral("/etc/security/limits.conf:2|@pupils - nproc 60|"
                       "the account is exempt from all limits: /etc/security/limits.conf:1|"
                       "the account is exempt from all limits: /etc/security/limits.conf:1"));
}

void LimitsCommandsTest::listsAccountsOfRule()
{
    const Result all = limitsOf("--rule", "/etc/security/limits.conf:1");
    QCOMPARE(all.status, 0);
    QCOMPARE(all.output, QStringLiteral("User\nalice\nbob\n"));
    QCOMPARE(limitsOf("--rule", "/etc/security/limits.conf:2").output, QStringLiteral("User\nalice\n"));
    Sandbox::write(dropInPath(QStringLiteral("x.conf")), "alice hard nproc 40\n");
    QCOMPARE(limitsOf("--rule", "/etc/security/limits.conf:2").output,
             QStringLiteral("It decides nothing for any account.\n"));
}

void LimitsCommandsTest::failsForUnknownNames_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");

    const QString user = QStringLiteral("--user");
    const QString group = QStringLiteral("--group");
    const QString name = QStringLiteral("nobody1");
    QTest::newRow("user") << QStringList{user, name} << 1 << QStringLiteral("There is no user 'nobody1'.");
    QTest::newRow("group") << QStringList{group, name} << 1 << QStringLiteral("There is no group 'nobody1'.");
    QTest::newRow("line") << QStringList{QStringLiteral("--rule"), QStringLiteral("/etc/security/limits.conf:9")} << 1
                          << QStringLiteral("There is no rule at '/etc/security/limits.conf:9'.");
    QTest::newRow("item") << QStringList{user, QStringLiteral("alice"), explain(), QStringLiteral("cores")} << 2
                          << QStringLiteral("There is no item 'cores'.");
}

void LimitsCommandsTest::failsForUnknownNames()
{
    QFETCH(QStringList, options);
    QFETCH(int, status);
    QFETCH(QString, message);

    const Result result = limits(options);
    QCOMPARE(result.status, status);
    QCOMPARE(result.output, QString());
    // Wrong use names the command.
    const QString name = status == 2 ? QStringLiteral("ormel-users limits: ") : QStringLiteral("ormel-users: ");
    QCOMPARE(result.errors.section(QLatin1Char('\n'), 0, 0), name + message);
}

void LimitsCommandsTest::marksAnswerWithoutFile_data()
{
    QTest::addColumn<QStringList>("options");

    const QString alice = QStringLiteral("alice");
    QTest::newRow("lines") << QStringList();
    QTest::newRow("user") << QStringList{QStringLiteral("--user"), alice};
    QTest::newRow("explanation") << QStringList{QStringLiteral("--user"), alice, explain(), QStringLiteral("core")};
    QTest::newRow("group") << QStringList{QStringLiteral("--group"), alice};
    QTest::newRow("check") << QStringList{QStringLiteral("--check")};
}

void LimitsCommandsTest::marksAnswerWithoutFile()
{
    QFETCH(QStringList, options);

    const QString path = dropInPath(QStringLiteral("x.conf"));
    Sandbox::write(path, "* soft core 1\n");
    QCOMPARE(::chmod(qPrintable(path), 0), 0);
    const Result result = limits(options);
    QCOMPARE(result.status, 3);
    QCOMPARE(result.errors,
             QStringLiteral("ormel-users: Cannot read %1: Permission denied\n"
                            "ormel-users: The answer is not complete.\n")
                 .arg(path));
    const Result asJson = limits(options + QStringList(json()));
    QCOMPARE(asJson.status, 3);
    QVERIFY(!asJson.output.contains(QLatin1String("\"complete\": true")));
}

void LimitsCommandsTest::failsOnFindings()
{
    Sandbox::write(limitsPath(), "* soft core 1\n\n*\tsoft\tcore\t0\n");
    const Result result = limits({QStringLiteral("--check")});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output.count(QLatin1Char('\n')), 1 + 2);
    QCOMPARE(row(result.output, "/etc/security/limits.conf:1"),
             QStringLiteral("/etc/security/limits.conf:1|never decides anything: overridden by "
                            "/etc/security/limits.conf:3 for every account|* soft core 1"));
    QCOMPARE(row(result.output, "/etc/security/limits.conf:3"),
             QStringLiteral("/etc/security/limits.conf:3|PAM applies this; programs that read it through LimitsParser "
                            "do not see it: columns that are not separated by spaces|*␉soft␉core␉0"));
}

void LimitsCommandsTest::approvesOfGoodFiles()
{
    const Result result = limits({QStringLiteral("--check")});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, QStringLiteral("No problems found.\n"));
    QCOMPARE(result.errors, QString());
    QCOMPARE(limits({QStringLiteral("--check"), json()}).output, QStringLiteral("[\n]\n"));
}

void LimitsCommandsTest::showsParserRules()
{
    installLimits(QFINDTESTDATA("../../limits/data/typical"));
    const Result result = limits({parser()});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors, QString());
    const QStringList lines = result.output.split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 1 + 13 * 3 + 1);
    const QString indent(29, QLatin1Char(' '));
    QCOMPARE(lines.at(0), QStringLiteral("Rule                         Meaning"));
    QCOMPARE(lines.at(4), QStringLiteral("@developers soft core -1     Group name: \"developers\""));
    QCOMPARE(lines.at(6), indent + QStringLiteral("Maximum core file size."));
}

void LimitsCommandsTest::showsParserValues()
{
    const Result user = limitsOf("--user", "alice", {parser()});
    QCOMPARE(user.status, 0);
    QCOMPARE(user.output.count(QLatin1Char('\n')), 1 + 19);
    QCOMPARE(row(user.output, "nproc"), QStringLiteral("nproc|50|50|Maximum number of processes."));
    const Result group = limitsOf("--group", "pupils", {parser()});
    QCOMPARE(row(group.output, "nproc"), QStringLiteral("nproc|60|60|Maximum number of processes."));
    QCOMPARE(row(group.output, "as"), QStringLiteral("as|no rule|Address space limit."));
}

void LimitsCommandsTest::refusesOptionsThatDoNotGoTogether_data()
{
    QTest::addColumn<QStringList>("options");

    const QStringList alice{QStringLiteral("--user"), QStringLiteral("alice")};
    const QString check = QStringLiteral("--check");
    QTest::newRow("check a user") << alice + QStringList(check);
    QTest::newRow("user and group") << alice + QStringList{QStringLiteral("--group"), QStringLiteral("alice")};
    QTest::newRow("explain nobody") << QStringList{explain(), QStringLiteral("core")};
    QTest::newRow("check the parser") << QStringList{check, parser()};
    QTest::newRow("JSON of the parser") << QStringList{json(), parser()};
}

void LimitsCommandsTest::refusesOptionsThatDoNotGoTogether()
{
    QFETCH(QStringList, options);

    const Result result = limits(options);
    QCOMPARE(result.status, 2);
    QCOMPARE(result.output, QString());
}

QTEST_GUILESS_MAIN(LimitsCommandsTest)

#include "limitscommandstest.moc"
