/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "describe.h"
#include "groupfixtures.h"
#include "messagerecorder.h"
#include "sandbox.h"
#include "systemids.h"

#include <GroupInfo>

#include <QTest>

#include <grp.h>

namespace
{
GroupInfo groupWithId(uint gid)
{
    char name[] = "some";
    char *members[] = {nullptr};
    group entry{name, nullptr, gid, members};
    return GroupInfo::getGroup(&entry);
}

GroupInfo groupOfLine(const QByteArray &line)
{
    QByteArray text = line;
    FILE *file = fmemopen(text.data(), static_cast<size_t>(text.size()), "r");
    GroupInfo group = GroupInfo::getGroup(fgetgrent(file));
    fclose(file);
    return group;
}
}

class GroupInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isEmptyByDefault();
    void knowsSystemGroups_data();
    void knowsSystemGroups();
    void comparesNameGidAndMembersInOrder_data();
    void comparesNameGidAndMembersInOrder();

    void buildsRecordFromEntryAlone();
    void keepsDuplicateMembersOfEntry();
    void copiesEntry();
    void decodesLatin1();
    void isEmptyWithoutNameWhateverTheGid();

    void tellsWhosePrimaryGroupItIs_data();
    void tellsWhosePrimaryGroupItIs();
    void isPrimaryOfNobodyWhenEmpty();
};

void GroupInfoTest::init()
{
    setGroups();
}

void GroupInfoTest::isEmptyByDefault()
{
    const GroupInfo group;
    QVERIFY(group.isEmpty());
    QVERIFY(group.name().isNull());
    QVERIFY(group.users().isEmpty());
    QCOMPARE(group.gid(), 0u);
}

void GroupInfoTest::knowsSystemGroups_data()
{
    addSystemIds(4294967295u);
}

void GroupInfoTest::knowsSystemGroups()
{
    QFETCH(uint, id);
    QFETCH(bool, system);

    QCOMPARE(groupWithId(id).gid(), id);
    QCOMPARE(groupWithId(id).isSystem(), system);
}

void GroupInfoTest::comparesNameGidAndMembersInOrder_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("equal");

    QTest::newRow("the same") << QByteArray("staff:x:50:alice,bob\n") << true;
    QTest::newRow("another password") << QByteArray("staff:!:50:alice,bob\n") << true;
    QTest::newRow("another name") << QByteArray("Staff:x:50:alice,bob\n") << false;
    QTest::newRow("another gid") << QByteArray("staff:x:51:alice,bob\n") << false;
    QTest::newRow("another order") << QByteArray("staff:x:50:bob,alice\n") << false;
    QTest::newRow("a member of another case") << QByteArray("staff:x:50:Alice,bob\n") << false;
    QTest::newRow("a member less") << QByteArray("staff:x:50:alice\n") << false;
    QTest::newRow("a member twice") << QByteArray("staff:x:50:alice,bob,bob\n") << false;
}

void GroupInfoTest::comparesNameGidAndMembersInOrder()
{
    QFETCH(QByteArray, line);
    QFETCH(bool, equal);

    const GroupInfo staff = groupOfLine("staff:x:50:alice,bob\n");
    const GroupInfo other = groupOfLine(line);
    QCOMPARE(staff == other, equal);
    QCOMPARE(staff != other, !equal);
    QCOMPARE(other == staff, equal);
}

void GroupInfoTest::buildsRecordFromEntryAlone()
{
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    QCOMPARE(describe(groupOfLine("staff:x:50:carol,alice\n")), QStringLiteral("staff(50: carol alice)"));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void GroupInfoTest::keepsDuplicateMembersOfEntry()
{
    QCOMPARE(describe(groupOfLine("staff:x:50:bob,alice,bob\n")), QStringLiteral("staff(50: bob alice bob)"));
}

void GroupInfoTest::copiesEntry()
{
    char name[] = "staff";
    char member[] = "alice";
    char *members[] = {member, nullptr};
    group entry{name, nullptr, 50, members};

    const GroupInfo staff = GroupInfo::getGroup(&entry);
    name[0] = 'X';
    member[0] = 'X';
    QCOMPARE(describe(staff), QStringLiteral("staff(50: alice)"));
}

void GroupInfoTest::decodesLatin1()
{
    const GroupInfo group = groupOfLine("caf\xe9:x:50:ren\xe9,\xc3\xa9\n");
    QCOMPARE(group.name(), QStringLiteral(u"caf\u00e9"));
    QCOMPARE(group.users(), QStringList({QStringLiteral(u"ren\u00e9"), QStringLiteral(u"\u00c3\u00a9")}));
}

void GroupInfoTest::isEmptyWithoutNameWhateverTheGid()
{
    char name[] = "";
    char *members[] = {nullptr};
    group entry{name, nullptr, 50, members};
    const GroupInfo group = GroupInfo::getGroup(&entry);

    QVERIFY(group.isEmpty());
    QVERIFY(!group.name().isNull());
    QCOMPARE(group.gid(), 50u);
}

void GroupInfoTest::tellsWhosePrimaryGroupItIs_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<bool>("primary");

    QTest::newRow("primary member") << QStringLiteral("alice") << true;
    QTest::newRow("explicit member") << QStringLiteral("bob") << false;
    QTest::newRow("unknown account") << QStringLiteral("nobodyknows") << false;
    QTest::newRow("no name") << QString() << false;
    QTest::newRow("account of the name service") << QStringLiteral("extra") << true;
    QTest::newRow("Latin-1") << QStringLiteral(u"ren\u00e9") << true;
}

void GroupInfoTest::tellsWhosePrimaryGroupItIs()
{
    QFETCH(QString, user);
    QFETCH(bool, primary);
    Sandbox::write(groupPath(), "alice:x:1000:bob\n");
    Sandbox::setExtraAccounts("extra:x:3000:1000::/:\nren\xe9:x:3001:1000::/:\n", QByteArray());

    MessageRecorder recorder;
    QCOMPARE(GroupInfo::getGroup(QStringLiteral("alice")).isPrimaryOf(user), primary);
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void GroupInfoTest::isPrimaryOfNobodyWhenEmpty()
{
    QCOMPARE(GroupInfo().gid(), 0u);
    QVERIFY(GroupInfo::getGroup(0u).isPrimaryOf(QStringLiteral("root")));
    QVERIFY(!GroupInfo().isPrimaryOf(QStringLiteral("root")));
}

QTEST_GUILESS_MAIN(GroupInfoTest)

#include "groupinfotest.moc"
