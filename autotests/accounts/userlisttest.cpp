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

class UserListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void listsUsersInFileOrder();
    void skipsMalformedLines();
    void keepsDuplicateLines();
    void listsNothingWithoutPasswd();
    void listsNothingOfEmptyPasswd();
    void listsUsersWithoutGroupFile();

    void listsLocalUsersOnly();
};

void UserListTest::init()
{
    setUsers();
}

void UserListTest::listsUsersInFileOrder()
{
    MessageRecorder recorder;
    QCOMPARE(describe(UserInfo::getUsers()),
             QStringList({
                 describe(user("root")),
                 describe(user("zed")),
                 describe(user("alice")),
                 describe(user("nobody")),
             }));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserListTest::skipsMalformedLines()
{
    Sandbox::write(passwdPath(),
                   "# a comment\n"
                   "\n"
                   "justaname\n"
                   "nouid:x::1000::/:\n"
                   "badgid:x:1000:abc::/:\n"
                   "alice:x:1000:1000::/:\n"
                   "\xff\xfe:::::::::::\n"
                   "zed:x:1001:1001::/:/bin/sh");
    QStringList names;
    const QList<UserInfo> users = UserInfo::getUsers();
    for (const UserInfo &user : users) {
        names.append(user.name());
    }
    QCOMPARE(names, QStringList({QStringLiteral("alice"), QStringLiteral("zed")}));
}

void UserListTest::keepsDuplicateLines()
{
    Sandbox::write(passwdPath(),
                   "alice:x:1000:1000:one:/:\n"
                   "alice:x:1001:1001:two:/:\n"
                   "alice:x:1000:1000:one:/:\n");
    const QList<UserInfo> users = UserInfo::getUsers();
    QCOMPARE(users.size(), 3);
    QCOMPARE(users.at(1).gecos(), QStringLiteral("two"));
    QCOMPARE(describe(users.at(0)), describe(users.at(2)));
    QCOMPARE(users.at(0).primaryGroup().users(), QStringList(QStringLiteral("alice")));
}

void UserListTest::listsNothingWithoutPasswd()
{
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    QVERIFY(UserInfo::getUsers().isEmpty());
    QCOMPARE(recorder.takeTexts(), QStringList(userUnableToOpen(passwdPath())));
}

void UserListTest::listsNothingOfEmptyPasswd()
{
    Sandbox::write(passwdPath(), QByteArray());
    MessageRecorder recorder;

    QVERIFY(UserInfo::getUsers().isEmpty());
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserListTest::listsUsersWithoutGroupFile()
{
    Sandbox::remove(groupPath());
    Sandbox::write(passwdPath(), "alice:x:1000:1000::/:\n");
    MessageRecorder recorder;

    const QList<UserInfo> users = UserInfo::getUsers();
    QCOMPARE(users.size(), 1);
    QVERIFY(users.first().groups().isEmpty());
    QVERIFY(users.first().primaryGroup().isEmpty());
    QCOMPARE(users.first().gid(), 1000u);
    QCOMPARE(recorder.takeTexts(), QStringList({groupNotFound(QString()), noAdministrators()}));
}

void UserListTest::listsLocalUsersOnly()
{
    Sandbox::setExtraAccounts("extra:x:3000:3000:Extra:/:/bin/sh\n", "extra:x:3000:zed\n");

    const QList<UserInfo> users = UserInfo::getUsers();
    QCOMPARE(users.size(), 4);
    for (const UserInfo &user : users) {
        QVERIFY(user.name() != QLatin1String("extra"));
    }
    QCOMPARE(groupNames(users.at(1)), QStringLiteral("zed audio extra"));
}

QTEST_GUILESS_MAIN(UserListTest)

#include "userlisttest.moc"
