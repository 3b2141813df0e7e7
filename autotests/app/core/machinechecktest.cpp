/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "machinecheck.h"
#include "brokenaccounts.h"
#include "problemtexts.h"
#include "sandbox.h"
#include "texts.h"

#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

namespace
{
QString path(const char *name)
{
    return QStringLiteral("/etc/") + QLatin1String(name);
}

/** For example "passwd:4 duplicate-uid bob". */
QString describe(const Problem &problem)
{
    const QString account = problem.user.isNull() ? problem.group : problem.user;
    return QStringLiteral("%1:%2 %3 %4")
        .arg(QFileInfo(problem.file).fileName(), QString::number(problem.line), problem.id(), account)
        .trimmed();
}

QStringList describe(const QList<Problem> &problems)
{
    QStringList lines;
    for (const Problem &problem : problems) {
        lines.append(describe(problem));
    }
    return lines;
}

QStringList describe(const QList<UnreadFile> &files)
{
    QStringList lines;
    for (const UnreadFile &file : files) {
        lines.append(file.path + (file.isExpected ? QLatin1String(" expected") : QLatin1String()));
    }
    return lines;
}

/** A limits file that is a link to itself. */
QString loopPath()
{
    return path("security/limits.d/loop.conf");
}

/** A machine whose only user, bob, has the home directory @p home. */
void setHomeOfBob(const QByteArray &home)
{
    BrokenAccounts accounts = BrokenAccounts::all().constFirst();
    const QByteArray uid = QByteArray::number(getuid());
    accounts.files[QStringLiteral("passwd")] = "bob:*:" + uid + ":0:Bob:" + home + ":\n";
    accounts.files[QStringLiteral("group")] = "root:*:0:\n";
    accounts.files[QStringLiteral("shadow")] = QByteArray();
    accounts.files[QStringLiteral("gshadow")] = QByteArray();
    accounts.install();
}
}

class MachineCheckTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void findsProblems_data();
    void findsProblems();
    void describesEachKind();
    void quotesLinesOfLimits();
    void tellsFilesThatFailSessions();
    void tellsUnreadableLimits();
    void asksNameService();
    void takesOwnHomeForGood();
    void doesNotOpenHomes_data();
    void doesNotOpenHomes();
    void tellsUnreadableFiles_data();
    void tellsUnreadableFiles();
    void expectsMissingShadowFiles();
    void doesNotWaitForFifoInPlaceOfFile();
    void readsVeryLongLines();
    void readsManyAccounts();
};

void MachineCheckTest::init()
{
    for (const char *name : {"passwd", "group", "shadow", "gshadow"}) {
        Sandbox::remove(path(name));
    }
    Sandbox::clear(path("security/limits.d"));
    BrokenAccounts::all().constFirst().install();
}

void MachineCheckTest::findsProblems_data()
{
    QTest::addColumn<BrokenAccounts>("accounts");

    const QVector<BrokenAccounts> cases = BrokenAccounts::all();
    QVERIFY(cases.size() >= 40);
    for (const BrokenAccounts &accounts : cases) {
        QTest::newRow(accounts.name.constData()) << accounts;
    }
}

void MachineCheckTest::findsProblems()
{
    QFETCH(BrokenAccounts, accounts);

    accounts.install();
    const MachineCheck check = MachineCheck::run();
    const QStringList found = sorted(describe(check.problems));
    const QStringList expected = sorted(accounts.problems);
    QVERIFY2(found == expected, qPrintable(found.join(QLatin1Char('\n'))));
    QCOMPARE(describe(check.unreadFiles), QStringList());
}

void MachineCheckTest::describesEachKind()
{
    QList<Problem> problems;
    const QVector<BrokenAccounts> cases = BrokenAccounts::all();
    for (const BrokenAccounts &accounts : cases) {
        accounts.install();
        problems += MachineCheck::run().problems;
    }
    QVERIFY(QFile::link(loopPath(), loopPath()));
    problems += MachineCheck::run().problems;
    ProblemTexts texts;
    QStringList ids;
    for (const Problem &problem : qAsConst(problems)) {
        ids.append(problem.id());
        QCOMPARE(texts.text(problem), problem.text());
        QCOMPARE(texts.meaning(problem), problem.meaning());
        QCOMPARE(texts.remedy(problem), problem.remedy());
        // KI18n marks placeholders without arguments, and arguments without placeholders.
        QVERIFY2(!problem.text().contains(QLatin1Char('%')), qPrintable(problem.text()));
        QVERIFY2(!problem.text().contains(QLatin1String("I18N")), qPrintable(problem.text()));
        QVERIFY(problem.meaning().endsWith(QLatin1Char('.')));
        QVERIFY(problem.remedy().endsWith(QLatin1Char('.')));
    }
    ids.removeDuplicates();
    QCOMPARE(ids.size(), int(Problem::lastKind) + 1);
}

void MachineCheckTest::quotesLinesOfLimits()
{
    Sandbox::write(path("security/limits.conf"), "alice both core 1\n\nalice both core 2\n");
    QStringList quoted;
    const QList<Problem> problems = MachineCheck::run().problems;
    for (const Problem &problem : problems) {
        quoted.append(problem.place() + QLatin1Char(' ') + problem.details.constFirst());
    }
    QCOMPARE(quoted,
             QStringList({QStringLiteral("/etc/security/limits.conf:1 alice both core 1"),
                          QStringLiteral("/etc/security/limits.conf:3 alice both core 2")}));
}

void MachineCheckTest::tellsFilesThatFailSessions()
{
    QVERIFY(QFile::link(loopPath(), loopPath()));
    const QList<Problem> problems = MachineCheck::run().problems;
    QCOMPARE(describe(problems), QStringList(QStringLiteral("loop.conf:0 failing-limits-file")));
    QCOMPARE(problems.constFirst().place(), loopPath());
    QCOMPARE(problems.constFirst().text(),
             QStringLiteral("'loop.conf': PAM opens no session for anybody: it cannot open this file: %1")
                 .arg(qt_error_string(ELOOP)));
}

void MachineCheckTest::tellsUnreadableLimits()
{
    Sandbox::write(path("security/limits.d/secret.conf"), "bob soft core 0\n");
    QCOMPARE(chmod("/etc/security/limits.d/secret.conf", 0), 0);
    const MachineCheck check = MachineCheck::run();
    QCOMPARE(describe(check.unreadFiles), QStringList(path("security/limits.d/secret.conf")));
    QCOMPARE(describe(check.problems), QStringList());

    QCOMPARE(chmod("/etc/security/limits.d", 0), 0);
    const QStringList unread = describe(MachineCheck::run().unreadFiles);
    QCOMPARE(chmod("/etc/security/limits.d", 0755), 0);
    QCOMPARE(unread, QStringList(path("security/limits.d")));
}

void MachineCheckTest::asksNameService()
{
    BrokenAccounts accounts = BrokenAccounts::all().constFirst();
    accounts.files[QStringLiteral("passwd")] += "bob:x:1001:4711:Bob:/nonexistent:/bin/sh\n";
    accounts.files[QStringLiteral("shadow")] += "bob:*:1::::::\n";
    accounts.files[QStringLiteral("group")] += "crew:x:1001:carol\n";
    accounts.files[QStringLiteral("gshadow")] += "crew:!::carol\n";
    accounts.install();
    Sandbox::setExtraAccounts("carol:x:2000:4711:Carol:/nonexistent:/bin/sh\n", "elsewhere:x:4711:\n");
    const QStringList found = describe(MachineCheck::run().problems);
    Sandbox::removeExtraAccounts();
    QCOMPARE(found, QStringList());
    QCOMPARE(MachineCheck::run().problems.size(), 3);
}

void MachineCheckTest::takesOwnHomeForGood()
{
    const QString home = QStringLiteral("/tmp/home");
    Sandbox::clear(home);
    setHomeOfBob(home.toLatin1());
    QVERIFY(!describe(MachineCheck::run().problems).join(QLatin1Char(' ')).contains(QLatin1String("home")));
}

void MachineCheckTest::doesNotOpenHomes_data()
{
    QTest::addColumn<QByteArray>("home");
    QTest::addColumn<QString>("kind");

    QTest::newRow("FIFO") << QByteArray("/tmp/homes/fifo") << QStringLiteral("home-not-directory");
    QTest::newRow("link to FIFO") << QByteArray("/tmp/homes/link") << QStringLiteral("home-not-directory");
    QTest::newRow("link to itself") << QByteArray("/tmp/homes/loop") << QStringLiteral("missing-home");
    QTest::newRow("device") << QByteArray("/dev/zero") << QStringLiteral("home-not-directory");
    QTest::newRow("name that is too long")
        << QByteArray("/tmp/" + QByteArray(300, 'a')) << QStringLiteral("missing-home");
    QTest::newRow("path that is too long")
        << QByteArray("/tmp/" + QByteArray("a/").repeated(5000)) << QStringLiteral("missing-home");
}

void MachineCheckTest::doesNotOpenHomes()
{
    QFETCH(QByteArray, home);
    QFETCH(QString, kind);

    Sandbox::clear(QStringLiteral("/tmp/homes"));
    QCOMPARE(mkfifo("/tmp/homes/fifo", 0600), 0);
    QCOMPARE(symlink("fifo", "/tmp/homes/link"), 0);
    QCOMPARE(symlink("loop", "/tmp/homes/loop"), 0);
    setHomeOfBob(home);
    const QStringList found = describe(MachineCheck::run().problems);
    QVERIFY2(found.contains(QStringLiteral("passwd:1 %1 bob").arg(kind)), qPrintable(found.join(QLatin1Char('\n'))));
}

void MachineCheckTest::tellsUnreadableFiles_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("unread");

    QTest::newRow("passwd") << path("passwd") << QStringLiteral("/etc/passwd");
    QTest::newRow("group") << path("group") << QStringLiteral("/etc/group");
    QTest::newRow("shadow") << path("shadow") << QStringLiteral("/etc/shadow expected");
    QTest::newRow("gshadow") << path("gshadow") << QStringLiteral("/etc/gshadow expected");
}

void MachineCheckTest::tellsUnreadableFiles()
{
    QFETCH(QString, file);
    QFETCH(QString, unread);

    QCOMPARE(chmod(QFile::encodeName(file).constData(), 0), 0);
    const MachineCheck check = MachineCheck::run();
    QCOMPARE(describe(check.unreadFiles), QStringList(unread));
    // Nothing is reported as missing because a file was not read.
    QCOMPARE(describe(check.problems), QStringList());
}

void MachineCheckTest::expectsMissingShadowFiles()
{
    Sandbox::remove(path("shadow"));
    Sandbox::remove(path("gshadow"));
    QCOMPARE(describe(MachineCheck::run().unreadFiles),
             QStringList({QStringLiteral("/etc/shadow expected"), QStringLiteral("/etc/gshadow expected")}));

    Sandbox::remove(path("passwd"));
    QVERIFY(describe(MachineCheck::run().unreadFiles).contains(QStringLiteral("/etc/passwd")));
}

void MachineCheckTest::doesNotWaitForFifoInPlaceOfFile()
{
    Sandbox::remove(path("group"));
    QCOMPARE(mkfifo("/etc/group", 0644), 0);
    QCOMPARE(describe(MachineCheck::run().unreadFiles), QStringList(QStringLiteral("/etc/group")));
}

void MachineCheckTest::readsVeryLongLines()
{
    const QByteArray name(1000000, 'b');
    BrokenAccounts accounts = BrokenAccounts::all().constFirst();
    accounts.files[QStringLiteral("passwd")] += name + ":x:1001:1000:Bob:/nonexistent:/bin/sh\n";
    accounts.files[QStringLiteral("shadow")] += name + ":*:1::::::\n";
    accounts.files[QStringLiteral("group")] += "crew:x:1001:" + QByteArray("alice,").repeated(200000) + "bob\n";
    accounts.files[QStringLiteral("gshadow")] += "crew:!::alice\n";
    accounts.install();
    QCOMPARE(describe(MachineCheck::run().problems),
             QStringList({
                 QStringLiteral("passwd:4 invalid-name ") + QString::fromLatin1(name),
                 QStringLiteral("group:5 missing-member crew"),
                 QStringLiteral("group:5 different-members crew"),
             }));
}

void MachineCheckTest::readsManyAccounts()
{
    constexpr int count = 100000;
    BrokenAccounts accounts = BrokenAccounts::all().constFirst();
    QByteArray &passwd = accounts.files[QStringLiteral("passwd")];
    passwd.reserve(count * 48); // each += would move everything where realloc() never extends a block
    for (int i = 0; i < count; ++i) {
        passwd += "user" + QByteArray::number(i) + ":*:" + QByteArray::number(2000 + i) + ":1000::/nonexistent:\n";
    }
    passwd += "last:*:2000:1000::/nonexistent:\n";
    accounts.install();
    Sandbox::remove(path("shadow"));
    QCOMPARE(describe(MachineCheck::run().problems), QStringList(QStringLiteral("passwd:100004 duplicate-uid last")));
}

QTEST_GUILESS_MAIN(MachineCheckTest)

#include "machinechecktest.moc"
