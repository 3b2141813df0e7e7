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

class GroupListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void listsGroupsInFileOrder();
    void skipsMalformedGroupLines();
    void keepsGroupsThatShareNameOrGid();
    void listsNothingWithoutGroupFile();
    void listsNothingOfEmptyGroupFile();
    void listsGroupsWithoutPasswd();
};

void GroupListTest::init()
{
    setGroups();
}

void GroupListTest::listsGroupsInFileOrder()
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

void GroupListTest::skipsMalformedGroupLines()
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

void GroupListTest::keepsGroupsThatShareNameOrGid()
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

void GroupListTest::listsNothingWithoutGroupFile()
{
    Sandbox::remove(groupPath());
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    QVERIFY(GroupInfo::getGroups().isEmpty());
    QCOMPARE(recorder.takeTexts(), QStringList(groupUnableToOpen(groupPath())));
}

void GroupListTest::listsNothingOfEmptyGroupFile()
{
    Sandbox::write(groupPath(), QByteArray());
    MessageRecorder recorder;

    QVERIFY(GroupInfo::getGroups().isEmpty());
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void GroupListTest::listsGroupsWithoutPasswd()
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

QTEST_GUILESS_MAIN(GroupListTest)

#include "grouplisttest.moc"
