/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsfixtures.h"
#include "pamsessions.h"
#include "randomsessionlimits.h"
#include "sessionaccounts.h"
#include "sessioncomparison.h"

#include <QTest>

#include <sys/resource.h>

namespace
{
/** The variable ORMEL_TEST_SETS sets how many random sets of files are tried. */
int setCount(int usual)
{
    const int wanted = qEnvironmentVariableIntValue("ORMEL_TEST_SETS");
    return wanted > 0 ? wanted : usual;
}

QString describe(int seed, const QByteArray &name, const QStringList &differences)
{
    return QStringLiteral("set %1, %2: %3")
        .arg(QString::number(seed), QString::fromLatin1(name), differences.join(QLatin1Char('\n')));
}

void writeRandomFiles(unsigned seed)
{
    RandomSessionLimits random(seed);
    clearLimits();
    Sandbox::write(limitsPath(), random.file());
    const QMap<QString, QByteArray> dropIns = random.dropIns();
    for (auto file = dropIns.begin(); file != dropIns.end(); ++file) {
        Sandbox::write(dropInPath(file.key()), *file);
    }
}
}

class SessionDifferenceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void agreesWithRandomSessions();
    void agreesWithKernel_data();
    void agreesWithKernel();
    void leavesSessionAsItWas_data();
    void leavesSessionAsItWas();
};

void SessionDifferenceTest::agreesWithRandomSessions()
{
    setSessionAccounts();
    PamSessions sessions;
    if (!sessions.error().isEmpty()) {
        QSKIP(qPrintable(sessions.error()));
    }
    SessionComparison comparison;
    const int count = setCount(100);
    for (int seed = 0; seed < count; ++seed) {
        writeRandomFiles(unsigned(seed));
        const PamLimits::SessionLimits limits = PamLimits::SessionLimits::read();
        const QVector<PamSession> opened = sessions.open(sessionAccounts());
        for (int i = 0; i < opened.size(); ++i) {
            const QByteArray name = sessionAccounts().at(i);
            const PamLimits::Account account = *limits.database().find(name);
            const QStringList differences = comparison.differences(opened.at(i), sessions.plain(), limits, account);
            QVERIFY2(differences.isEmpty(), qPrintable(describe(seed, name, differences)));
        }
    }
    qInfo("%d sets of files, %d sessions, %d values compared, %d could not be told",
          count,
          count * sessionAccounts().size(),
          comparison.compared(),
          comparison.untold());
}

void SessionDifferenceTest::agreesWithKernel_data()
{
    QTest::addColumn<QByteArray>("rules");

    QTest::newRow("hard") << QByteArray("* hard nproc 200\nalice hard nofile 90\n* hard core 7\n");
    QTest::newRow("soft") << QByteArray("* soft nproc 200\n* soft core 7\nalice soft stack 4096\n");
    QTest::newRow("both") << QByteArray("@staff - nproc 200\n* - nofile 90\n* - rtprio 0\n* - locks 50\n");
    QTest::newRow("soft above hard") << QByteArray("* soft nofile 100\n* hard nofile 90\n* hard msgqueue 8000\n");
    QTest::newRow("lost with the soft one") << QByteArray("alice soft nproc 200\n* - nproc 100\n");
    QTest::newRow("no login") << QByteArray("* hard nproc 200\n* - maxlogins 0\n");
}

void SessionDifferenceTest::agreesWithKernel()
{
    QFETCH(QByteArray, rules);

    setSessionAccounts();
    PamSessions sessions(PamSessions::Limits::OfKernel);
    if (!sessions.error().isEmpty()) {
        QSKIP(qPrintable(sessions.error()));
    }
    Sandbox::write(limitsPath(), rules);
    const PamLimits::SessionLimits limits = PamLimits::SessionLimits::read();
    SessionComparison comparison;
    const QVector<PamSession> opened = sessions.open(sessionAccounts());
    for (int i = 0; i < opened.size(); ++i) {
        const PamLimits::Account account = *limits.database().find(sessionAccounts().at(i));
        QCOMPARE(comparison.kernelDifferences(opened.at(i), sessions.plain(), limits, account), QStringList());
    }
    QVERIFY(comparison.compared() > comparison.untold());
}

void SessionDifferenceTest::leavesSessionAsItWas_data()
{
    QTest::addColumn<QByteArray>("rules");

    QTest::newRow("exempt") << QByteArray("* hard nofile 200\nalice -\n");
    QTest::newRow("refused by the kernel") << QByteArray("* hard nofile 9999999999\n* soft nofile 200\n");
}

void SessionDifferenceTest::leavesSessionAsItWas()
{
    QFETCH(QByteArray, rules);

    setSessionAccounts();
    PamSessions sessions(PamSessions::Limits::OfKernel);
    if (!sessions.error().isEmpty()) {
        QSKIP(qPrintable(sessions.error()));
    }
    Sandbox::write(limitsPath(), rules);
    const PamLimits::SessionLimits limits = PamLimits::SessionLimits::read();
    const PamLimits::Answer answer = limits.answer(*limits.database().find("alice"));
    QVERIFY(!answer.limit(PamLimits::Item::NoFile).soft.isSet());
    QVERIFY(!answer.limit(PamLimits::Item::NoFile).hard.isSet());

    rlimit own = {};
    QCOMPARE(getrlimit(RLIMIT_NOFILE, &own), 0);
    const QPair<quint64, quint64> found = sessions.open("alice").limits.value("nofile");
    QCOMPARE(found.first, quint64(own.rlim_cur));
    QCOMPARE(found.second, quint64(own.rlim_max));
}

QTEST_GUILESS_MAIN(SessionDifferenceTest)

#include "sessiondifferencetest.moc"
