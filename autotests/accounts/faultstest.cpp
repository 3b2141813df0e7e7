/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "describe.h"
#include "messagerecorder.h"
#include "openfiles.h"
#include "processortime.h"
#include "sandbox.h"
#include "standin.h"

#include <UserInfo>

#include <QElapsedTimer>
#include <QTest>

#include <cerrno>
#include <chrono>
#include <thread>

#include <grp.h>
#include <pwd.h>

// Account lookups when functions of the C library fail or are slow.

namespace
{
using std::chrono::milliseconds;

struct Fault {
    static constexpr int always = -1;

    const char *function = nullptr;
    int error = 0;
    int call = always; ///< the one that fails
};

Fault s_fault;
int s_roomClaimed = 0; ///< the number of groups that getgrouplist() reports when it fails
milliseconds s_delay{0};
int s_calls = 0;

bool fails(const char *function)
{
    if (s_delay.count() > 0) {
        std::this_thread::sleep_for(s_delay);
        ++s_calls;
    }
    if (qstrcmp(s_fault.function, function) != 0 || (s_fault.call != Fault::always && s_fault.call-- != 0)) {
        return false;
    }
    errno = s_fault.error;
    return true;
}
}

extern "C" Q_DECL_EXPORT FILE *fopen(const char *path, const char *mode)
{
    static const auto next = original(fopen, "fopen");
    return fails("fopen") ? nullptr : next(path, mode);
}

extern "C" Q_DECL_EXPORT passwd *getpwnam(const char *name)
{
    static const auto next = original(getpwnam, "getpwnam");
    return fails("getpwnam") ? nullptr : next(name);
}

extern "C" Q_DECL_EXPORT passwd *getpwuid(uid_t uid)
{
    static const auto next = original(getpwuid, "getpwuid");
    return fails("getpwuid") ? nullptr : next(uid);
}

extern "C" Q_DECL_EXPORT group *getgrnam(const char *name)
{
    static const auto next = original(getgrnam, "getgrnam");
    return fails("getgrnam") ? nullptr : next(name);
}

extern "C" Q_DECL_EXPORT group *getgrgid(gid_t gid)
{
    static const auto next = original(getgrgid, "getgrgid");
    return fails("getgrgid") ? nullptr : next(gid);
}

extern "C" Q_DECL_EXPORT int getgrouplist(const char *user, gid_t group, gid_t *groups, int *count)
{
    static const auto next = original(getgrouplist, "getgrouplist");
    if (!fails("getgrouplist")) {
        return next(user, group, groups, count);
    }
    *count = s_roomClaimed;
    return -1;
}

namespace
{
/** The results of a public lookup, one text for each record. */
using Lookup = QStringList (*)();

QString alice()
{
    return QStringLiteral("alice");
}

QStringList users()
{
    return describe(UserInfo::getUsers());
}

QStringList userByName()
{
    return {describe(UserInfo::getUser(alice()))};
}

QStringList userById()
{
    return {describe(UserInfo::getUser(1000u))};
}

QStringList groups()
{
    return describe(GroupInfo::getGroups());
}

QStringList groupByName()
{
    return {describe(GroupInfo::getGroup(QStringLiteral("staff")))};
}

QStringList groupById()
{
    return {describe(GroupInfo::getGroup(50u))};
}

QStringList primaryMembers()
{
    return GroupInfo::getPrimaryGroups().value(50);
}

QStringList isPrimary()
{
    // Looking it up by id works even where names cannot be found.
    const bool primary = GroupInfo::getGroup(1000u).isPrimaryOf(alice());
    return {primary ? QStringLiteral("primary") : QStringLiteral("not primary")};
}

QStringList repeated(const QString &text, int count)
{
    return QVector<QString>(count, text).toList();
}

const QString noUser = QStringLiteral("null | 0 | 0 | null | null | null | primary null(0: ) | groups  | no admin");
const QString noGroup = QStringLiteral("null(0: )");
const QString aliceAlone = QStringLiteral("alice | 1000 | 1000 |  | / | /bin/sh | ");
const QString bobAlone = QStringLiteral("bob | 1001 | 50 |  | / | /bin/sh | ");
const QString aliceWithoutPrimaryMembers = aliceAlone
    + QLatin1String("primary alice(1000: ) | groups alice(1000: ), ormel-admin(27: alice), staff(50: alice) | admin");
const QString bobWithoutPrimaryMembers =
    bobAlone + QLatin1String("primary staff(50: alice) | groups staff(50: alice) | no admin");
const QString withoutGroups = QStringLiteral("primary null(0: ) | groups  | no admin");
const QString aliceWithEmptyGroups =
    aliceAlone + QLatin1String("primary null(0: ) | groups null(0: ), null(0: ), null(0: ) | no admin");
}

Q_DECLARE_METATYPE(Lookup)

class AccountFaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void givesWhatCanBeFound_data();
    void givesWhatCanBeFound();
    void endsWithoutGroupsWhenNoMoreRoomIsWanted_data();
    void endsWithoutGroupsWhenNoMoreRoomIsWanted();
    void takesNoLongerThanWhatItAsks_data();
    void takesNoLongerThanWhatItAsks();
};

void AccountFaultsTest::init()
{
    Sandbox::setAccounts("alice:x:1000:1000::/:/bin/sh\nbob:x:1001:50::/:/bin/sh\n",
                         "ormel-admin:x:27:alice\nstaff:x:50:alice\nalice:x:1000:\n");
    Sandbox::removeExtraAccounts();
}

void AccountFaultsTest::givesWhatCanBeFound_data()
{
    QTest::addColumn<Lookup>("lookup");
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<int>("call");
    QTest::addColumn<QStringList>("found");
    QTest::addColumn<QStringList>("warnings");

    const QString noPasswd = groupUnableToOpen(passwdPath());
    const QString noStaff = groupNotFound(QStringLiteral("staff"));
    const QString noAlice = groupNotFound(alice());
    const QString noName = groupNotFound(QString());
    const auto row = [](const char *name, Lookup lookup, const char *function, int call) -> QTestData & {
        return QTest::newRow(name) << lookup << QByteArray(function) << call;
    };

    row("users, listing", users, "fopen", 0) << QStringList() << QStringList(userUnableToOpen(passwdPath()));
    row("users, primary members", users, "fopen", 1)
        << QStringList({aliceWithoutPrimaryMembers, bobWithoutPrimaryMembers}) << repeated(noPasswd, 8);
    row("users, group ids", users, "getgrgid", Fault::always)
        << QStringList({aliceAlone + withoutGroups, bobAlone + withoutGroups}) << repeated(noName, 2);
    row("user by name", userByName, "getpwnam", 0) << QStringList(noUser) << QStringList();
    row("user by id", userById, "getpwuid", 0) << QStringList(noUser) << QStringList();
    row("user, primary members", userByName, "fopen", 0)
        << QStringList(aliceWithoutPrimaryMembers) << repeated(noPasswd, 5);
    row("user, group ids", userByName, "getgrgid", Fault::always)
        << QStringList(aliceAlone + withoutGroups) << QStringList(noName);
    row("user, group names", userByName, "getgrnam", Fault::always)
        << QStringList(aliceWithEmptyGroups)
        << QStringList({noAlice, noAdministrators(), noStaff, noAlice, noAdministrators()});
    row("groups, listing", groups, "fopen", 0) << QStringList() << QStringList(groupUnableToOpen(groupPath()));
    row("groups, primary members", groups, "fopen", 1) << QStringList(
        {QStringLiteral("ormel-admin(27: alice)"), QStringLiteral("staff(50: alice)"), QStringLiteral("alice(1000: )")})
                                                       << QStringList(noPasswd);
    row("group by name", groupByName, "getgrnam", 0) << QStringList(noGroup) << QStringList(noStaff);
    row("group by name, primary members", groupByName, "fopen", 0)
        << QStringList(QStringLiteral("staff(50: alice)")) << QStringList(noPasswd);
    row("group by id", groupById, "getgrgid", 0)
        << QStringList(noGroup) << QStringList(QStringLiteral("GroupInfo: unable to find group entry by gid: 50"));
    row("group by id, primary members", groupById, "fopen", 0)
        << QStringList(QStringLiteral("staff(50: alice)")) << QStringList(noPasswd);
    row("primary groups", primaryMembers, "fopen", 0) << QStringList() << QStringList(noPasswd);
    row("primary group of user", isPrimary, "getpwnam", 0)
        << QStringList(QStringLiteral("not primary")) << QStringList();
}

void AccountFaultsTest::givesWhatCanBeFound()
{
    QFETCH(Lookup, lookup);
    QFETCH(QByteArray, function);
    QFETCH(int, call);
    QFETCH(QStringList, found);
    QFETCH(QStringList, warnings);

    const QStringList complete = lookup();
    QVERIFY(found != complete);
    const QStringList filesBefore = openFiles();

    for (const int error : {EACCES, EINTR, EIO, EMFILE, ENFILE, ENOMEM}) {
        MessageRecorder recorder;
        s_fault = {function.constData(), error, call};
        const QStringList actual = lookup();
        s_fault = {};
        QCOMPARE(actual, found);
        QCOMPARE(recorder.takeTexts(), warnings);
        QCOMPARE(openFiles(), filesBefore);

        // Failures are not remembered.
        QCOMPARE(lookup(), complete);
        QCOMPARE(recorder.takeTexts(), QStringList());
    }
}

void AccountFaultsTest::endsWithoutGroupsWhenNoMoreRoomIsWanted_data()
{
    QTest::addColumn<int>("claimed");

    QTest::newRow("as much") << 16;
    QTest::newRow("less") << 1;
    QTest::newRow("none") << 0;
    QTest::newRow("a negative number") << -1;
}

void AccountFaultsTest::endsWithoutGroupsWhenNoMoreRoomIsWanted()
{
    QFETCH(int, claimed);
    const QStringList complete = users();

    for (const int error : {0, EINTR, EIO, ENOMEM}) {
        MessageRecorder recorder;
        s_roomClaimed = claimed;
        s_fault = {"getgrouplist", error, Fault::always};
        const QStringList actual = users();
        s_fault = {};
        QCOMPARE(actual,
                 QStringList({aliceAlone + QLatin1String("primary alice(1000: alice) | groups  | no admin"),
                              bobAlone + QLatin1String("primary staff(50: alice bob) | groups  | no admin")}));
        QCOMPARE(recorder.takeTexts(), QStringList());
        QCOMPARE(users(), complete);
    }
}

void AccountFaultsTest::takesNoLongerThanWhatItAsks_data()
{
    QTest::addColumn<Lookup>("lookup");

    QTest::newRow("users") << Lookup(users);
    QTest::newRow("user by name") << Lookup(userByName);
    QTest::newRow("user by id") << Lookup(userById);
    QTest::newRow("groups") << Lookup(groups);
    QTest::newRow("group by name") << Lookup(groupByName);
    QTest::newRow("group by id") << Lookup(groupById);
    QTest::newRow("primary groups") << Lookup(primaryMembers);
    QTest::newRow("primary group of user") << Lookup(isPrimary);
}

// ORMEL_TEST_DELAY sets the delay of each function of the C library in milliseconds.
void AccountFaultsTest::takesNoLongerThanWhatItAsks()
{
    QFETCH(Lookup, lookup);
    const QStringList undelayed = lookup();

    const qint64 queued = queuedMilliseconds();
    s_calls = 0;
    s_delay = milliseconds(qEnvironmentVariableIntValue("ORMEL_TEST_DELAY"));
    if (s_delay.count() == 0) {
        s_delay = milliseconds(20);
    }
    QElapsedTimer timer;
    timer.start();
    const QStringList delayed = lookup();
    const milliseconds elapsed(timer.elapsed());
    const milliseconds sum = s_calls * s_delay;
    s_delay = milliseconds(0);
    const milliseconds inTurn(queuedMilliseconds() - queued);

    QCOMPARE(delayed, undelayed);
    QVERIFY(s_calls > 0);
    qInfo("%d calls that take %d ms: %d ms", s_calls, int(sum.count()), int(elapsed.count()));
    QVERIFY(elapsed >= sum);
    QVERIFY(elapsed - inTurn < sum + milliseconds(1000));
}

QTEST_GUILESS_MAIN(AccountFaultsTest)

#include "faultstest.moc"
