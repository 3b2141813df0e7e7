/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "describe.h"
#include "messagerecorder.h"
#include "sandbox.h"
#include "userfixtures.h"

#include <UserInfo>

#include <QTest>

#include <pwd.h>

class UserGroupsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void listsGroupsWithAllTheirMembers();
    void listsEveryGroup_data();
    void listsEveryGroup();
    void skipsGroupsWithoutEntry();
    void looksGroupsUpAgainByName();
    void listsGroupsOfStaticEntry();

    void toleratesMissingPrimaryGroup();
    void isAdministratorByMembership();
    void isAdministratorByPrimaryGroup();
    void isNoAdministratorWithoutThatGroup();
    void isNoAdministratorThroughGroupOfEqualGid();
};

void UserGroupsTest::init()
{
    setUsers();
}

void UserGroupsTest::listsGroupsWithAllTheirMembers()
{
    Sandbox::setAccounts("alice:x:1000:50::/:\n"
                         "bob:x:1001:60::/:\n"
                         "carol:x:1002:50::/:\n",
                         "ormel-admin:x:27:\n"
                         "staff:x:50:zoe\n"
                         "music:x:60:alice\n");
    QCOMPARE(describe(UserInfo::getUserGroups(getpwnam("alice"))),
             QStringList({QStringLiteral("staff(50: zoe alice carol)"), QStringLiteral("music(60: alice bob)")}));
}

void UserGroupsTest::listsEveryGroup_data()
{
    QTest::addColumn<int>("count");

    for (const int count : {0, 1, 14, 15, 16, 17, 31, 32, 63, 64, 65, 70, 300}) {
        QTest::addRow("%d memberships", count) << count;
    }
}

void UserGroupsTest::listsEveryGroup()
{
    QFETCH(int, count);
    Sandbox::setAccounts("alice:x:1000:5000::/:\n", manyGroups(count, "alice") + "alice:x:5000:\n");

    QStringList expected(QStringLiteral("alice"));
    for (int i = 0; i < count; ++i) {
        expected.append(QStringLiteral("group%1").arg(i));
    }
    QCOMPARE(user("alice").groupNames(), expected);
}

void UserGroupsTest::skipsGroupsWithoutEntry()
{
    Sandbox::setAccounts("alice:x:1000:4711::/:\n", "ormel-admin:x:27:\naudio:x:29:alice\n");
    MessageRecorder recorder;

    QCOMPARE(describe(UserInfo::getUserGroups(getpwnam("alice"))), QStringList(QStringLiteral("audio(29: alice)")));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserGroupsTest::looksGroupsUpAgainByName()
{
    // The id 61 leads to the name "two", whose first line has another id.
    Sandbox::setAccounts("alice:x:1000:61::/:\n",
                         "ormel-admin:x:27:\n"
                         "one:x:60:\n"
                         "two:x:60:bob\n"
                         "two:x:61:carol\n");
    QCOMPARE(describe(user("alice")),
             QStringLiteral("alice | 1000 | 61 |  | / |  | primary two(60: bob) | groups two(60: bob) | no admin"));
}

void UserGroupsTest::listsGroupsOfStaticEntry()
{
    const QStringList expected = describe(user("zed").groups());
    FILE *file = fopen("/etc/passwd", "r");
    QVERIFY(file);
    QVERIFY(fgetpwent(file));
    passwd *entry = fgetpwent(file);
    QCOMPARE(QByteArray(entry->pw_name), QByteArray("zed"));
    QCOMPARE(describe(UserInfo::getUserGroups(entry)), expected);
    fclose(file);
}

void UserGroupsTest::toleratesMissingPrimaryGroup()
{
    Sandbox::setAccounts("alice:x:1000:4711::/:\n", "ormel-admin:x:27:\naudio:x:29:alice\n");
    MessageRecorder recorder;

    const UserInfo alice = user("alice");
    QVERIFY(alice.primaryGroup().isEmpty());
    QCOMPARE(alice.gid(), 4711u);
    QCOMPARE(groupNames(alice), QStringLiteral("audio"));
    QCOMPARE(recorder.takeTexts(), QStringList(groupNotFound(QString())));
}

void UserGroupsTest::isAdministratorByMembership()
{
    QVERIFY(user("alice").isOrmelAdmin());
    QVERIFY(!user("zed").isOrmelAdmin());
    QVERIFY(!user("root").isOrmelAdmin());
}

void UserGroupsTest::isAdministratorByPrimaryGroup()
{
    Sandbox::write(passwdPath(), "zed:x:1001:27::/:\n");
    QVERIFY(user("zed").isOrmelAdmin());
}

void UserGroupsTest::isNoAdministratorWithoutThatGroup()
{
    Sandbox::write(groupPath(), "admin:x:27:alice\nalice:x:1000:\nzed:x:1001:\n");
    QVERIFY(!user("alice").isOrmelAdmin());
    QVERIFY(!user("zed").isOrmelAdmin());
}

void UserGroupsTest::isNoAdministratorThroughGroupOfEqualGid()
{
    // The gid 27 leads to the name "operators", which is another group.
    Sandbox::write(groupPath(), "operators:x:27:\normel-admin:x:27:alice\nalice:x:1000:\n");
    QCOMPARE(groupNames(user("alice")), QStringLiteral("alice operators"));
    QVERIFY(!user("alice").isOrmelAdmin());
}

QTEST_GUILESS_MAIN(UserGroupsTest)

#include "usergroupstest.moc"
