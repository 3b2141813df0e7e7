/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "program.h"
#include "sandbox.h"

#include <QTest>

#include <algorithm>
#include <random>

#include <grp.h>
#include <pwd.h>
#include <sys/resource.h>

namespace
{
constexpr int accounts = 1000;
constexpr int sharedGroups = 20;
constexpr int memberships = 3;
constexpr int rounds = 5;

/** Accounts with a primary group of their own, each in a few of the shared groups. */
void writeAccounts()
{
    std::mt19937 random(1);
    QByteArray passwd;
    QByteArray ownGroups;
    QVector<QByteArrayList> members(sharedGroups);
    for (int i = 0; i < accounts; ++i) {
        const QByteArray name = "user" + QByteArray::number(i);
        const QByteArray id = QByteArray::number(1000 + i);
        passwd += name + ":x:" + id + ':' + id + ":User,,,:/home/" + name + ":/bin/bash\n";
        ownGroups += name + ":x:" + id + ":\n";
        const int first = static_cast<int>(random() % sharedGroups);
        for (int j = 0; j < memberships; ++j) {
            members[(first + 7 * j) % sharedGroups].append(name);
        }
    }
    QByteArray groups = "ormel-admin:x:27:user0\n";
    for (int i = 0; i < sharedGroups; ++i) {
        groups += "shared" + QByteArray::number(i) + ":x:" + QByteArray::number(200 + i) + ':' + members.at(i).join(',')
            + '\n';
    }
    Sandbox::setAccounts(passwd, groups + ownGroups);
}

double processorSeconds(int who)
{
    rusage usage{};
    getrusage(who, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/** The least processor time, of this process or its children, that @p work took in some rounds. */
template<typename Work>
double secondsFor(int who, const Work &work)
{
    double least = 1e9;
    for (int i = 0; i < rounds; ++i) {
        const double start = processorSeconds(who);
        work();
        least = std::min(least, processorSeconds(who) - start);
    }
    return least;
}

/** What a program in C would do at the least: every account, and the ids of its groups. */
int countMemberships()
{
    int sum = 0;
    FILE *file = fopen("/etc/passwd", "r");
    while (const passwd *entry = fgetpwent(file)) {
        gid_t ids[64];
        int count = 64;
        getgrouplist(entry->pw_name, entry->pw_gid, ids, &count);
        sum += count;
    }
    fclose(file);
    return sum;
}
}

class AccountSpeedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsUsersInTwiceTheTimeOfTheLookupsAlone();
};

void AccountSpeedTest::listsUsersInTwiceTheTimeOfTheLookupsAlone()
{
    writeAccounts();
    QCOMPARE(countMemberships(), accounts * (1 + memberships) + 1);
    QCOMPARE(Program::run({QStringLiteral("users")}).output.count('\n'), 1 + accounts);

    const double loop = secondsFor(RUSAGE_SELF, countMemberships);
    const double start = secondsFor(RUSAGE_CHILDREN, [] { Program::run({QStringLiteral("--version")}); });
    const double list = secondsFor(RUSAGE_CHILDREN, [] { Program::run({QStringLiteral("users")}); });
    qInfo("loop %.3f s, process start %.3f s, ormel-users users %.3f s", loop, start, list);
    QVERIFY(list <= 2 * loop + start);
}

QTEST_GUILESS_MAIN(AccountSpeedTest)

#include "accountspeedtest.moc"
