/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "program.h"
#include "sandbox.h"

#include <QTest>

#include <algorithm>
#include <limits>
#include <random>

#include <grp.h>
#include <pwd.h>
#include <sys/resource.h>

namespace
{
constexpr int accounts = 1000;
constexpr int sharedGroups = 20;
constexpr int memberships = 3;
constexpr int rounds = 7;

/**
 * Accounts with a primary group of their own, each in a few of the shared groups. These stand last:
 * getgrgid and getgrnam, unlike getgrouplist, parse the members of every line that they pass.
 */
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
    Sandbox::setAccounts(passwd, ownGroups + groups);
    Sandbox::removeExtraAccounts();
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

/** The lookups that a record consists of on top of that: each group once by its id and by its name. */
int lookUpGroups()
{
    int found = 0;
    for (int i = 0; i < accounts; ++i) {
        const group *entry = getgrgid(static_cast<gid_t>(1000 + i));
        found += entry && getgrnam(QByteArray(entry->gr_name).constData()) ? 1 : 0;
    }
    for (int i = 0; i < sharedGroups; ++i) {
        const group *entry = getgrgid(static_cast<gid_t>(200 + i));
        found += entry && getgrnam(QByteArray(entry->gr_name).constData()) ? 1 : 0;
    }
    return found;
}

/** The least processor time, of this process or its children, that a piece of work took. */
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
    writeAccounts();
    QCOMPARE(countMemberships(), accounts * (1 + memberships) + 1);
    QCOMPARE(lookUpGroups(), accounts + sharedGroups);
    QCOMPARE(Program::run({QStringLiteral("users")}).output.count('\n'), 1 + accounts);

    Timer loop(RUSAGE_SELF);
    Timer lookups(RUSAGE_SELF);
    Timer start(RUSAGE_CHILDREN);
    Timer list(RUSAGE_CHILDREN);
    for (int i = 0; i < rounds; ++i) {
        loop.time(countMemberships);
        lookups.time(lookUpGroups);
        start.time([] { Program::run({QStringLiteral("--version")}); });
        list.time([] { Program::run({QStringLiteral("users")}); });
    }
    qInfo("getgrouplist for each account %.3f s, the lookups of the groups %.3f s, "
          "ormel-users --version %.3f s, ormel-users users %.3f s",
          loop.seconds(),
          lookups.seconds(),
          start.seconds(),
          list.seconds());
    QVERIFY(list.seconds() <= 1.25 * (loop.seconds() + lookups.seconds()) + start.seconds());
}

QTEST_GUILESS_MAIN(AccountSpeedTest)

#include "accountspeedtest.moc"
