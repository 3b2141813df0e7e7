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

class GroupLookupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void findsGroupByName();
    void findsGroupByGid();
    void findsGroupsWithLatin1Names();
    void takesFirstOfLinesThatShareNameOrGid();

    void reloadsGidAndMembers();
    void reloadKeepsNameOfDeletedGroup();

    void asksNameServiceForGroups();
};

void GroupLookupTest::init()
{
    setGroups();
}

void GroupLookupTest::findsGroupByName()
{
    MessageRecorder recorder;
    QCOMPARE(describe(GroupInfo::getGroup(QStringLiteral("staff"))), QStringLiteral("staff(50: alice bob carol)"));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void GroupLookupTest::findsGroupByGid()
{
    MessageRecorder recorder;
    QCOMPARE(describe(GroupInfo::getGroup(50u)), QStringLiteral("staff(50: alice bob carol)"));
    QCOMPARE(describe(GroupInfo::getGroup(0u)), QStringLiteral("root(0: root)"));

    Sandbox::write(groupPath(), "first:x:0:\nbig:x:4294967294:\nhalf:x:2147483648:\n");
    QCOMPARE(GroupInfo::getGroup(4294967294u).name(), QStringLiteral("big"));
    QCOMPARE(GroupInfo::getGroup(2147483648u).name(), QStringLiteral("half"));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void GroupLookupTest::findsGroupsWithLatin1Names()
{
    Sandbox::write(groupPath(), "caf\xe9:x:60:\n");
    QCOMPARE(GroupInfo::getGroup(QStringLiteral(u"caf\u00e9")).gid(), 60u);
    QCOMPARE(GroupInfo::getGroup(60u).name(), QStringLiteral(u"caf\u00e9"));
}

void GroupLookupTest::takesFirstOfLinesThatShareNameOrGid()
{
    Sandbox::write(groupPath(),
                   "one:x:60:a\n"
                   "two:x:60:b\n"
                   "two:x:61:c\n");
    QCOMPARE(describe(GroupInfo::getGroup(60u)), QStringLiteral("one(60: a)"));
    QCOMPARE(describe(GroupInfo::getGroup(QStringLiteral("two"))), QStringLiteral("two(60: b)"));
    QCOMPARE(describe(GroupInfo::getGroup(61u)), QStringLiteral("two(61: c)"));
}

void GroupLookupTest::reloadsGidAndMembers()
{
    GroupInfo staff = GroupInfo::getGroup(QStringLiteral("staff"));
    Sandbox::write(groupPath(), "staff:x:1000:zoe\n");
    MessageRecorder recorder;

    QCOMPARE(describe(staff), QStringLiteral("staff(50: alice bob carol)"));
    staff.reload();
    QCOMPARE(describe(staff), QStringLiteral("staff(1000: zoe alice)"));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void GroupLookupTest::reloadKeepsNameOfDeletedGroup()
{
    GroupInfo staff = GroupInfo::getGroup(QStringLiteral("staff"));
    Sandbox::write(groupPath(), "root:x:0:\n");
    MessageRecorder recorder;

    staff.reload();
    QCOMPARE(describe(staff), QStringLiteral("staff(0: )"));
    QCOMPARE(recorder.takeTexts(), QStringList(groupNotFound(QStringLiteral("staff"))));
}

void GroupLookupTest::asksNameServiceForGroups()
{
    Sandbox::setExtraAccounts("extra:x:3000:3000::/:\n", "team:x:3000:alice\n");

    QCOMPARE(GroupInfo::getGroup(QStringLiteral("team")).gid(), 3000u);
    QCOMPARE(GroupInfo::getGroup(3000u).name(), QStringLiteral("team"));
    const QList<GroupInfo> groups = GroupInfo::getGroups();
    for (const GroupInfo &group : groups) {
        QVERIFY(group.name() != QLatin1String("team"));
    }
    QCOMPARE(groups.size(), 3);
}

QTEST_GUILESS_MAIN(GroupLookupTest)

#include "grouplookuptest.moc"
