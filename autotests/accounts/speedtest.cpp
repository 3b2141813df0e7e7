/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "barelookups.h"
#include "generatedaccounts.h"
#include "processortime.h"
#include "program.h"

#include <QTest>

#include <algorithm>
#include <limits>

namespace
{
constexpr int accounts = 1000;
/** Other load only slows a round down. The fastest of many rounds comes closest to the true cost. */
constexpr int leastRounds = 7;
constexpr int mostRounds = 70;

/** The lowest processor time, of this process or its children, of several rounds of work. */
class Timer
{
public:
    explicit Timer(int who)
        : m_who(who)
    {
    }

    template<typename Work>
    void time(const Work &work)
    {
        const double start = processorSeconds(m_who);
        work();
        m_least = std::min(m_least, processorSeconds(m_who) - start);
    }

    double seconds() const
    {
        return m_least;
    }

private:
    int m_who;
    double m_least = std::numeric_limits<double>::max();
};
}

class AccountSpeedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsUsersHardlySlowerThanTheirLookups();
};

void AccountSpeedTest::listsUsersHardlySlowerThanTheirLookups()
{
    GeneratedAccounts::write(accounts);
    QCOMPARE(BareLookups::countMemberships(), accounts * (1 + GeneratedAccounts::memberships));
    QCOMPARE(BareLookups::lookUpGroups(), accounts + GeneratedAccounts::sharedGroups + 1);
    QCOMPARE(Program::run({QStringLiteral("users")}).output.count('\n'), 1 + accounts);

    Timer loop(RUSAGE_SELF);
    Timer lookups(RUSAGE_SELF);
    Timer start(RUSAGE_CHILDREN);
    Timer list(RUSAGE_CHILDREN);
    const auto isFast = [&] { return list.seconds() <= 1.25 * (loop.seconds() + lookups.seconds()) + start.seconds(); };
    for (int i = 0; i < leastRounds || (i < mostRounds && !isFast()); ++i) {
        loop.time(BareLookups::countMemberships);
        lookups.time(BareLookups::lookUpGroups);
        start.time([] { Program::run({QStringLiteral("--version")}); });
        list.time([] { Program::run({QStringLiteral("users")}); });
    }
    qInfo("getgrouplist for each account %.3f s, the lookups of the groups %.3f s, "
          "ormel-users --version %.3f s, ormel-users users %.3f s",
          loop.seconds(),
          lookups.seconds(),
          start.seconds(),
          list.seconds());
    QVERIFY(isFast());
}

QTEST_GUILESS_MAIN(AccountSpeedTest)

#include "speedtest.moc"
