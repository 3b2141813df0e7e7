/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsfixtures.h"
#include "program.h"

#include <QTest>

#include <sys/stat.h>

namespace
{
struct Result {
    int status = -1;
    QString output;
    QString errors;
};

/** Runs "ormel-users limits" with @p options. */
Result limits(const QStringList &options)
{
    const Program::Result result = Program::run(QStringList(QStringLiteral("limits")) + options);
    return {result.status, QString::fromUtf8(result.output), QString::fromUtf8(result.errors)};
}

Result limitsOf(const char *option, const char *name)
{
    return limits({QLatin1String(option), QLatin1String(name)});
}

/** The line of @p output that begins with @p word, its columns separated by "|". */
QString row(const QString &output, const char *word)
{
    const QStringList lines = output.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        QStringList cells = line.split(QLatin1String("  "), Qt::SkipEmptyParts);
        for (QString &cell : cells) {
            cell = cell.trimmed();
        }
        if (cells.value(0) == QLatin1String(word)) {
            return cells.join(QLatin1Char('|'));
        }
    }
    return {};
}
}

class LimitsCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void showsRulesWithTheirMeaning();
    void showsValuesForUser();
    void showsValuesForGroup();
    void showsNothingForRoot();
    void failsForUnknownAccounts();
    void failsOnUnreadableFile_data();
    void failsOnUnreadableFile();
    void failsOnFindings();
    void approvesOfGoodFiles();
    void takesOneQuestionAtATime();
};

void LimitsCommandsTest::init()
{
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts("root:x:0:0::/root:/bin/sh\nalice:x:1000:1000::/:\n",
                         "root:x:0:\normel-admin:x:27:\nalice:x:1000:\npupils:x:50:alice\n");
    installLimits(QFINDTESTDATA("../../limits/data/typical"));
}

void LimitsCommandsTest::showsRulesWithTheirMeaning()
{
    const Result result = limits({});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors, QString());
    const QStringList lines = result.output.split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 1 + 13 * 3 + 1);
    const QString indent(29, QLatin1Char(' '));
    QCOMPARE(lines.at(0), QStringLiteral("Rule                         Meaning"));
    QCOMPARE(lines.at(4), QStringLiteral("@developers soft core -1     Group name: \"developers\""));
    QCOMPARE(lines.at(5),
             indent
                 + QStringLiteral("This is the soft resource limit. This type of limits is used by default and can be "
                                  "changed by the user."));
    QCOMPARE(lines.at(6), indent + QStringLiteral("Maximum core file size."));
    QCOMPARE(lines.at(19), QStringLiteral("mirror - chroot /srv/mirror  User name: \"mirror\""));
}

void LimitsCommandsTest::showsValuesForUser()
{
    const Result result = limitsOf("--user", "alice");
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output.count(QLatin1Char('\n')), 1 + 19);
    QCOMPARE(row(result.output, "core"), QStringLiteral("core|0|0 KB|Maximum core file size."));
    QCOMPARE(row(result.output, "nproc"), QStringLiteral("nproc|60|60|Maximum number of processes."));
    QCOMPARE(row(result.output, "maxlogins"), QStringLiteral("maxlogins|2|2|Maximum number of logins for this user."));
    QCOMPARE(row(result.output, "memlock"), QStringLiteral("memlock|no rule|Maximum locked-in-memory address space."));
}

void LimitsCommandsTest::showsValuesForGroup()
{
    const Result result = limitsOf("--group", "pupils");
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output.count(QLatin1Char('\n')), 1 + 19);
    QCOMPARE(row(result.output, "nproc"), QStringLiteral("nproc|60|60|Maximum number of processes."));
    const Result other = limitsOf("--group", "alice");
    QCOMPARE(row(other.output, "nproc"), QStringLiteral("nproc|no rule|Maximum number of processes."));
}

void LimitsCommandsTest::showsNothingForRoot()
{
    const Result result = limitsOf("--user", "root");
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output.count(QLatin1String("no rule")), 18);
    QCOMPARE(row(result.output, "core"), QStringLiteral("core|4096|4096 KB|Maximum core file size."));
}

void LimitsCommandsTest::failsForUnknownAccounts()
{
    const Result user = limitsOf("--user", "nobody1");
    QCOMPARE(user.status, 1);
    QCOMPARE(user.output, QString());
    QCOMPARE(user.errors, QStringLiteral("ormel-users: There is no user 'nobody1'.\n"));
    const Result group = limitsOf("--group", "nogroup1");
    QCOMPARE(group.status, 1);
    QCOMPARE(group.output, QString());
    QVERIFY(group.errors.endsWith(QLatin1String("ormel-users: There is no group 'nogroup1'.\n")));
}

void LimitsCommandsTest::failsOnUnreadableFile_data()
{
    QTest::addColumn<QStringList>("options");

    const QString alice = QStringLiteral("alice");
    QTest::newRow("rules") << QStringList();
    QTest::newRow("user") << QStringList{QStringLiteral("--user"), alice};
    QTest::newRow("group") << QStringList{QStringLiteral("--group"), alice};
    QTest::newRow("check") << QStringList{QStringLiteral("--check")};
}

void LimitsCommandsTest::failsOnUnreadableFile()
{
    QFETCH(QStringList, options);

    const QString path = dropInPath(QStringLiteral("90-sound.conf"));
    QCOMPARE(::chmod(qPrintable(path), 0), 0);
    const Result result = limits(options);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors, QStringLiteral("ormel-users: Unable to open file \"%1\": Permission denied.\n").arg(path));
}

void LimitsCommandsTest::failsOnFindings()
{
    Sandbox::write(limitsPath(), "* soft core 1\n\n*\tsoft\tcore\t0\n");
    const Result result = limits({QStringLiteral("--check")});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output.count(QLatin1Char('\n')), 2);
    QCOMPARE(row(result.output, "/etc/security/limits.conf"),
             QStringLiteral("/etc/security/limits.conf|3|tabs between columns, only spaces separate them|"
                            "*\\tsoft\\tcore\\t0"));
}

void LimitsCommandsTest::approvesOfGoodFiles()
{
    const Result result = limits({QStringLiteral("--check")});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, QStringLiteral("Every line is taken as it is written.\n"));
    QCOMPARE(result.errors, QString());
}

void LimitsCommandsTest::takesOneQuestionAtATime()
{
    const Result result = limits({QStringLiteral("--check"), QStringLiteral("--user"), QStringLiteral("alice")});
    QCOMPARE(result.status, 2);
    QCOMPARE(result.output, QString());
}

QTEST_GUILESS_MAIN(LimitsCommandsTest)

#include "limitscommandstest.moc"
