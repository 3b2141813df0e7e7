/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "describe.h"
#include "localencoding.h"
#include "messagerecorder.h"
#include "sandbox.h"

#include <GroupInfo>

#include <QTest>

#include <grp.h>
#include <pwd.h>

namespace
{
const char threeUsers[] = "root:x:0:0:root:/root:/bin/bash\n"
                          "alice:x:1000:1000::/home/alice:/bin/bash\n"
                          "bob:x:1001:50::/home/bob:/bin/bash\n"
                          "carol:x:1002:50::/home/carol:/bin/bash\n";

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
    void cleanup();

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

    void findsGroupByName();
    void findsGroupByGid();
    void findsGroupsWithLatin1Names();
    void takesFirstOfLinesThatShareNameOrGid();
    void warnsOfUnknownName_data();
    void warnsOfUnknownName();
    void warnsInLocalEncoding();
    void warnsOfUnknownGid_data();
    void warnsOfUnknownGid();
    void listsExplicitMembersBeforePrimaryMembers();
    void listsMemberOnceAtItsFirstPlace();
    void listsPrimaryMembersInFileOrder();
    void completesWithNothingWithoutPasswd();
    void doesNotReadPasswdForUnknownGroup();

    void listsGroupsInFileOrder();
    void skipsMalformedGroupLines();
    void keepsGroupsThatShareNameOrGid();
    void listsNothingWithoutGroupFile();
    void listsNothingOfEmptyGroupFile();
    void listsGroupsWithoutPasswd();

    void mapsPrimaryGroups();
    void mapsNothingWithoutPasswd();
    void skipsMalformedPasswdLines();

    void tellsWhosePrimaryGroupItIs_data();
    void tellsWhosePrimaryGroupItIs();
    void isPrimaryOfNobodyWhenEmpty();

    void reloadsGidAndMembers();
    void reloadKeepsNameOfDeletedGroup();

    void asksNameServiceForGroups();
    void countsLocalAccountsOnlyAsPrimaryMembers();
    void warnsInDefaultCategoryWithoutContext();
};

void GroupInfoTest::init()
{
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts(threeUsers,
                         "root:x:0:\n"
                         "staff:x:50:alice\n"
                         "alice:x:1000:\n");
}

void GroupInfoTest::cleanup()
{
    Sandbox::removeExtraAccounts();
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
    QTest::addColumn<uint>("gid");
    QTest::addColumn<bool>("system");

    QTest::newRow("0") << 0u << true;
    QTest::newRow("1") << 1u << true;
    QTest::newRow("999") << 999u << true;
    QTest::newRow("1000") << 1000u << false;
    QTest::newRow("65533") << 65533u << false;
    QTest::newRow("65534") << 65534u << true;
    QTest::newRow("65535") << 65535u << false;
    QTest::newRow("2147483648") << 2147483648u << false;
    QTest::newRow("4294967295") << 4294967295u << false;
}

void GroupInfoTest::knowsSystemGroups()
{
    QFETCH(uint, gid);
    QFETCH(bool, system);

    QCOMPARE(groupWithId(gid).gid(), gid);
    QCOMPARE(groupWithId(gid).isSystem(), system);
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

void GroupInfoTest::findsGroupByName()
{
    MessageRecorder recorder;
    QCOMPARE(describe(GroupInfo::getGroup(QStringLiteral("staff"))), QStringLiteral("staff(50: alice bob carol)"));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void GroupInfoTest::findsGroupByGid()
{
    MessageRecorder recorder;
    QCOMPARE(describe(GroupInfo::getGroup(50u)), QStringLiteral("staff(50: alice bob carol)"));
    QCOMPARE(describe(GroupInfo::getGroup(0u)), QStringLiteral("root(0: root)"));

    Sandbox::write(groupPath(), "first:x:0:\nbig:x:4294967294:\nhalf:x:2147483648:\n");
    QCOMPARE(GroupInfo::getGroup(4294967294u).name(), QStringLiteral("big"));
    QCOMPARE(GroupInfo::getGroup(2147483648u).name(), QStringLiteral("half"));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void GroupInfoTest::findsGroupsWithLatin1Names()
{
    Sandbox::write(groupPath(), "caf\xe9:x:60:\n");
    QCOMPARE(GroupInfo::getGroup(QStringLiteral(u"caf\u00e9")).gid(), 60u);
    QCOMPARE(GroupInfo::getGroup(60u).name(), QStringLiteral(u"caf\u00e9"));
}

void GroupInfoTest::takesFirstOfLinesThatShareNameOrGid()
{
    Sandbox::write(groupPath(),
                   "one:x:60:a\n"
                   "two:x:60:b\n"
                   "two:x:61:c\n");
    QCOMPARE(describe(GroupInfo::getGroup(60u)), QStringLiteral("one(60: a)"));
    QCOMPARE(describe(GroupInfo::getGroup(QStringLiteral("two"))), QStringLiteral("two(60: b)"));
    QCOMPARE(describe(GroupInfo::getGroup(61u)), QStringLiteral("two(61: c)"));
}

void GroupInfoTest::warnsOfUnknownName_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("unknown") << QStringLiteral("nosuchgroup");
    QTest::newRow("empty") << QString(QLatin1String(""));
    QTest::newRow("null") << QString();
    QTest::newRow("with a placeholder") << QStringLiteral("%s%n%1");
    QTest::newRow("Latin-1") << QStringLiteral(u"caf\u00e9");
    QTest::newRow("beyond Latin-1") << QStringLiteral(u"\u30b0\u30eb\u30fc\u30d7");
    QTest::newRow("of another case") << QStringLiteral("Staff");
}

void GroupInfoTest::warnsOfUnknownName()
{
    QFETCH(QString, name);

    MessageRecorder recorder;
    QCOMPARE(describe(GroupInfo::getGroup(name)), describe(GroupInfo()));
    QCOMPARE(recorder.takeTexts(), QStringList(groupNotFound(name)));
}

void GroupInfoTest::warnsInLocalEncoding()
{
    const LocalEncoding latin1("ISO-8859-1");
    MessageRecorder recorder;
    GroupInfo::getGroup(QStringLiteral(u"caf\u00e9"));
    // Messages are put together from UTF-8, of which the single byte is none.
    QCOMPARE(recorder.takeTexts(), QStringList(groupNotFound(QStringLiteral(u"caf\ufffd"))));
}

void GroupInfoTest::warnsOfUnknownGid_data()
{
    QTest::addColumn<uint>("gid");
    QTest::addColumn<QString>("warning");

    QTest::newRow("4711") << 4711u << "GroupInfo: unable to find group entry by gid: 4711";
    QTest::newRow("4294967294") << 4294967294u << "GroupInfo: unable to find group entry by gid: 4294967294";
}

void GroupInfoTest::warnsOfUnknownGid()
{
    QFETCH(uint, gid);
    QFETCH(QString, warning);

    MessageRecorder recorder;
    QCOMPARE(describe(GroupInfo::getGroup(gid)), describe(GroupInfo()));
    QCOMPARE(recorder.takeTexts(), QStringList(warning));
}

void GroupInfoTest::listsExplicitMembersBeforePrimaryMembers()
{
    Sandbox::write(groupPath(), "staff:x:50:zoe,alice\n");
    QCOMPARE(GroupInfo::getGroup(QStringLiteral("staff")).users().join(QLatin1Char(' ')),
             QStringLiteral("zoe alice bob carol"));
}

void GroupInfoTest::listsMemberOnceAtItsFirstPlace()
{
    Sandbox::write(groupPath(), "staff:x:50:carol,alice,carol,alice\n");
    const QString staff = QStringLiteral("staff(50: carol alice bob)");
    QCOMPARE(describe(GroupInfo::getGroup(QStringLiteral("staff"))), staff);
    QCOMPARE(describe(GroupInfo::getGroup(50u)), staff);
    QCOMPARE(describe(GroupInfo::getGroups()), QStringList(staff));
}

void GroupInfoTest::listsPrimaryMembersInFileOrder()
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

void GroupInfoTest::completesWithNothingWithoutPasswd()
{
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    QCOMPARE(describe(GroupInfo::getGroup(QStringLiteral("staff"))), QStringLiteral("staff(50: alice)"));
    QCOMPARE(recorder.takeTexts(), QStringList(groupUnableToOpen(passwdPath())));

    QCOMPARE(describe(GroupInfo::getGroup(50u)), QStringLiteral("staff(50: alice)"));
    QCOMPARE(recorder.takeTexts(), QStringList(groupUnableToOpen(passwdPath())));
}

void GroupInfoTest::doesNotReadPasswdForUnknownGroup()
{
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    QVERIFY(GroupInfo::getGroup(QStringLiteral("nosuchgroup")).isEmpty());
    QCOMPARE(recorder.takeTexts(), QStringList(groupNotFound(QStringLiteral("nosuchgroup"))));
}

void GroupInfoTest::listsGroupsInFileOrder()
{
    MessageRecorder recorder;
    Sandbox::write(groupPath(),
                   "zebra:x:2000:\n"
                   "staff:x:50:alice\n"
                   "alice:x:1000:\n"
                   "root:x:0:\n");
    QCOMPARE(describe(GroupInfo::getGroups()),
             QStringList({
                 QStringLiteral("zebra(2000: )"),
                 QStringLiteral("staff(50: alice bob carol)"),
                 QStringLiteral("alice(1000: alice)"),
                 QStringLiteral("root(0: root)"),
             }));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void GroupInfoTest::skipsMalformedGroupLines()
{
    Sandbox::write(groupPath(),
                   "# a comment\n"
                   "\n"
                   "justaname\n"
                   "nogid:x::alice\n"
                   "badgid:x:abc:alice\n"
                   "first:x:60:alice\n"
                   "\xff\xfe:::::\n"
                   "last:x:61:bob");
    QCOMPARE(describe(GroupInfo::getGroups()),
             QStringList({QStringLiteral("first(60: alice)"), QStringLiteral("last(61: bob)")}));
}

void GroupInfoTest::keepsGroupsThatShareNameOrGid()
{
    Sandbox::write(groupPath(),
                   "one:x:50:\n"
                   "two:x:50:zoe\n"
                   "two:x:51:\n");
    QCOMPARE(describe(GroupInfo::getGroups()),
             QStringList({
                 QStringLiteral("one(50: bob carol)"),
                 QStringLiteral("two(50: zoe bob carol)"),
                 QStringLiteral("two(51: )"),
             }));
}

void GroupInfoTest::listsNothingWithoutGroupFile()
{
    Sandbox::remove(groupPath());
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    QVERIFY(GroupInfo::getGroups().isEmpty());
    QCOMPARE(recorder.takeTexts(), QStringList(groupUnableToOpen(groupPath())));
}

void GroupInfoTest::listsNothingOfEmptyGroupFile()
{
    Sandbox::write(groupPath(), QByteArray());
    MessageRecorder recorder;

    QVERIFY(GroupInfo::getGroups().isEmpty());
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void GroupInfoTest::listsGroupsWithoutPasswd()
{
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    QCOMPARE(describe(GroupInfo::getGroups()),
             QStringList({
                 QStringLiteral("root(0: )"),
                 QStringLiteral("staff(50: alice)"),
                 QStringLiteral("alice(1000: )"),
             }));
    QCOMPARE(recorder.takeTexts(), QStringList(groupUnableToOpen(passwdPath())));
}

void GroupInfoTest::mapsPrimaryGroups()
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

void GroupInfoTest::mapsNothingWithoutPasswd()
{
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    QVERIFY(GroupInfo::getPrimaryGroups().isEmpty());
    QCOMPARE(recorder.takeTexts(), QStringList(groupUnableToOpen(passwdPath())));
}

void GroupInfoTest::skipsMalformedPasswdLines()
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

void GroupInfoTest::reloadsGidAndMembers()
{
    GroupInfo staff = GroupInfo::getGroup(QStringLiteral("staff"));
    Sandbox::write(groupPath(), "staff:x:1000:zoe\n");
    MessageRecorder recorder;

    QCOMPARE(describe(staff), QStringLiteral("staff(50: alice bob carol)"));
    staff.reload();
    QCOMPARE(describe(staff), QStringLiteral("staff(1000: zoe alice)"));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void GroupInfoTest::reloadKeepsNameOfDeletedGroup()
{
    GroupInfo staff = GroupInfo::getGroup(QStringLiteral("staff"));
    Sandbox::write(groupPath(), "root:x:0:\n");
    MessageRecorder recorder;

    staff.reload();
    QCOMPARE(describe(staff), QStringLiteral("staff(0: )"));
    QCOMPARE(recorder.takeTexts(), QStringList(groupNotFound(QStringLiteral("staff"))));
}

void GroupInfoTest::asksNameServiceForGroups()
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

void GroupInfoTest::countsLocalAccountsOnlyAsPrimaryMembers()
{
    Sandbox::setExtraAccounts("extra:x:3000:1000::/:\nother:x:3001:3000::/:\n", "team:x:3000:alice\n");

    QVERIFY(getpwnam("extra") && getpwnam("other"));
    QCOMPARE(describe(GroupInfo::getGroup(1000u)), QStringLiteral("alice(1000: alice)"));
    QCOMPARE(describe(GroupInfo::getGroup(3000u)), QStringLiteral("team(3000: alice)"));
    QVERIFY(!GroupInfo::getPrimaryGroups().contains(3000));
}

void GroupInfoTest::warnsInDefaultCategoryWithoutContext()
{
    MessageRecorder recorder;
    GroupInfo::getGroup(QStringLiteral("nosuchgroup"));
    GroupInfo::getGroup(4711u);
    Sandbox::remove(passwdPath());
    GroupInfo::getPrimaryGroups();
    Sandbox::remove(groupPath());
    GroupInfo::getGroups();

    QCOMPARE(recorder.messages().size(), 4);
    for (const MessageRecorder::Message &message : recorder.messages()) {
        QCOMPARE(message.type, QtWarningMsg);
        QCOMPARE(message.category, QByteArray("default"));
        QVERIFY(message.file.isNull());
        QVERIFY(message.function.isNull());
        QCOMPARE(message.line, 0);
    }
}

QTEST_GUILESS_MAIN(GroupInfoTest)

#include "groupinfotest.moc"
