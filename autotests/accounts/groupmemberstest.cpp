/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "describe.h"
#include "groupfixtures.h"
#include "messagerecorder.h"
#include "sandbox.h"

#include <GroupInfo>

#include <QTest>

#include <pwd.h>

class GroupMembersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void listsExplicitMembersBeforePrimaryMembers();
    void listsMemberOnceAtItsFirstPlace();
    void listsPrimaryMembersInFileOrder();
    void completesWithNothingWithoutPasswd();
    void doesNotReadPasswdForUnknownGroup();

    void mapsPrimaryGroups();
    void mapsNothingWithoutPasswd();
    void skipsMalformedPasswdLines();

    void countsLocalAccountsOnlyAsPrimaryMembers();
};

void GroupMembersTest::init()
{
    setGroups();
}

void GroupMembersTest::listsExplicitMembersBeforePrimaryMembers()
{
    Sandbox::write(groupPath(), "staff:x:50:zoe,alice\n");
    QCOMPARE(GroupInfo::getGroup(QStringLiteral("staff")).users().join(QLatin1Char(' ')),
             QStringLiteral("zoe alice bob carol"));
}

void GroupMembersTest::listsMemberOnceAtItsFirstPlace()
{
    Sandbox::write(groupPath(), "staff:x:50:carol,alice,carol,alice\n");
    const QString staff = QStringLiteral("staff(50: carol alice bob)");
    QCOMPARE(describe(GroupInfo::getGroup(QStringLiteral("staff"))), staff);
    QCOMPARE(describe(GroupInfo::getGroup(50u)), staff);
    QCOMPARE(describe(GroupInfo::getGroups()), QStringList(staff));
}

void GroupMembersTest::listsPrimaryMembersInFileOrder()
{
    constexpr int count = 100;
    Sandbox::setAccounts("zoe:x:1001:50::/:\n" + manyUsers(count), "staff:x:50:\n");
    QStringList members(QStringLiteral("zoe"));
    for (int i = 0; i < count; ++i) {
        members.append(QStringLiteral("user%1").arg(i));
    }
    QCOMPARE(GroupInfo::getGroup(50u).users(), members);
    QCOMPARE(GroupInfo::getGroup(QStringLiteral("staff")).users(), members);
    QCOMPARE(GroupInfo::getGroups().constFirst().users(), members);
    QCOMPARE(GroupInfo::getPrimaryGroups().value(50), members);
}

void GroupMembersTest::completesWithNothingWithoutPasswd()
{
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    QCOMPARE(describe(GroupInfo::getGroup(QStringLiteral("staff"))), QStringLiteral("staff(50: alice)"));
    QCOMPARE(recorder.takeTexts(), QStringList(groupUnableToOpen(passwdPath())));

    QCOMPARE(describe(GroupInfo::getGroup(50u)), QStringLiteral("staff(50: alice)"));
    QCOMPARE(recorder.takeTexts(), QStringList(groupUnableToOpen(passwdPath())));
}

void GroupMembersTest::doesNotReadPasswdForUnknownGroup()
{
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    QVERIFY(GroupInfo::getGroup(QStringLiteral("nosuchgroup")).isEmpty());
    QCOMPARE(recorder.takeTexts(), QStringList(groupNotFound(QStringLiteral("nosuchgroup"))));
}

void GroupMembersTest::mapsPrimaryGroups()
{
    MessageRecorder recorder;
    const QHash<uint, QStringList> expected{
        {0, {QStringLiteral("root")}},
        {1000, {QStringLiteral("alice")}},
        {50, {QStringLiteral("bob"), QStringLiteral("carol")}},
    };
    QCOMPARE(GroupInfo::getPrimaryGroups(), expected);
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void GroupMembersTest::mapsNothingWithoutPasswd()
{
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    QVERIFY(GroupInfo::getPrimaryGroups().isEmpty());
    QCOMPARE(recorder.takeTexts(), QStringList(groupUnableToOpen(passwdPath())));
}

void GroupMembersTest::skipsMalformedPasswdLines()
{
    Sandbox::write(passwdPath(),
                   "# a comment\n"
                   "\n"
                   "justaname\n"
                   "nouid:x::50::/:\n"
                   "badgid:x:1000:abc::/:\n"
                   "alice:x:1000:50::/:\n"
                   "alice:x:1001:50::/:\n"
                   "bob:x:1001:50::/:/bin/sh");
    const QHash<uint, QStringList> expected{
        {50, {QStringLiteral("alice"), QStringLiteral("alice"), QStringLiteral("bob")}},
    };
    QCOMPARE(GroupInfo::getPrimaryGroups(), expected);
}

void GroupMembersTest::countsLocalAccountsOnlyAsPrimaryMembers()
{
    Sandbox::setExtraAccounts("extra:x:3000:1000::/:\nother:x:3001:3000::/:\n", "team:x:3000:alice\n");

    QVERIFY(getpwnam("extra") && getpwnam("other"));
    QCOMPARE(describe(GroupInfo::getGroup(1000u)), QStringLiteral("alice(1000: alice)"));
    QCOMPARE(describe(GroupInfo::getGroup(3000u)), QStringLiteral("team(3000: alice)"));
    QVERIFY(!GroupInfo::getPrimaryGroups().contains(3000));
}

QTEST_GUILESS_MAIN(GroupMembersTest)

#include "groupmemberstest.moc"
