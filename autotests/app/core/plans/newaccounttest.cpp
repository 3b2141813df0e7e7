/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "newaccount.h"

#include "messagerecorder.h"
#include "shadowtools.h"
#include "texts.h"

#include <UserInfo>

#include <QFileInfo>
#include <QTest>

namespace
{
const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n";

const char groupsFile[] = "root:x:0:\n"
                          "staff:x:50:\n"
                          "audio:x:29:\n"
                          "video:x:44:\n"
                          "50:x:2000:\n";

QByteArray shadowLine(const QByteArray &user)
{
    QFile file(QStringLiteral("/etc/shadow"));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArrayList lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(user + ':')) {
            return line;
        }
    }
    return {};
}

UserInfo readBack(const char *name)
{
    const MessageRecorder noAdministrators;
    return UserInfo::getUser(QString::fromLatin1(name));
}
}

class NewAccountTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void createsSmallestAccount();
    void createsAccountWithEverything();
    void usesGroupThatExists();
    void createsAccountsOfHostileNames_data();
    void createsAccountsOfHostileNames();
    void joinsGroupWhoseNameIsNumber();
};

void NewAccountTest::init()
{
    ShadowTools::setAccounts(usersFile, groupsFile);
}

void NewAccountTest::createsSmallestAccount()
{
    NewAccount account;
    account.userName = text("ada");
    const Plan plan = account.plan();
    QCOMPARE(plan.toText(), QByteArray("useradd --create-home --user-group ada\n"));
    QVERIFY(!plan.holdsHash);
    QCOMPARE(plan.notes,
             QStringList(text("Without a password hash, nobody can log in with a password until passwd(1) sets one.")));
    QCOMPARE(ShadowTools::run(plan), QByteArray());
    const UserInfo user = readBack("ada");
    QCOMPARE(user.home(), ShadowTools::homes() + text("/ada"));
    QVERIFY(QFileInfo(user.home()).isDir());
    QCOMPARE(user.groupNames(), QStringList(text("ada")));
    QVERIFY(shadowLine("ada").startsWith("ada:!:"));
}

void NewAccountTest::createsAccountWithEverything()
{
    NewAccount account;
    account.userName = text("ada");
    account.primaryGroup = NewAccount::PrimaryGroup::New;
    account.groupName = text("engine");
    account.uid = text("1815");
    account.fullName = QString::fromUtf8("Ada \"L.\" O'Byron \xc3\x96");
    account.room = text("$HOME `id`");
    account.workPhone = text("-12");
    account.homePhone = text("+34 (5)");
    account.other = text("a=b; reboot");
    account.groups = QStringList({text("audio"), text("video")});
    account.passwordHash = text("$6$salt$hash/.");
    const Plan plan = account.plan();
    QVERIFY(plan.holdsHash);
    QCOMPARE(plan.notes, QStringList());
    QCOMPARE(plan.toText(),
             QByteArray("groupadd engine\n"
                        "useradd --create-home --uid 1815 --gid engine --comment 'Ada \"L.\" O'\\''Byron \xc3\x96' "
                        "--groups audio,video ada\n"
                        "chfn --room '$HOME `id`' --work-phone -12 --home-phone '+34 (5)' --other 'a=b; reboot' ada\n"
                        "usermod --password '$6$salt$hash/.' ada\n"));
    QCOMPARE(ShadowTools::run(plan), QByteArray());
    const UserInfo user = readBack("ada");
    QCOMPARE(user.uid(), 1815U);
    QCOMPARE(user.gecos(), QString::fromUtf8("Ada \"L.\" O'Byron \xc3\x96,$HOME `id`,-12,+34 (5),a=b; reboot"));
    QCOMPARE(user.primaryGroup().name(), text("engine"));
    QStringList groups = user.groupNames();
    groups.sort();
    QCOMPARE(groups, QStringList({text("audio"), text("engine"), text("video")}));
    QVERIFY(shadowLine("ada").startsWith("ada:$6$salt$hash/.:"));
}

void NewAccountTest::usesGroupThatExists()
{
    NewAccount account;
    account.userName = text("ada");
    account.primaryGroup = NewAccount::PrimaryGroup::Existing;
    account.groupName = text("staff");
    QCOMPARE(account.plan().toText(), QByteArray("useradd --create-home --gid staff ada\n"));
    QCOMPARE(ShadowTools::run(account.plan()), QByteArray());
    QCOMPARE(readBack("ada").gid(), 50U);
    QCOMPARE(readBack("ada").groupNames(), QStringList(text("staff")));
}

void NewAccountTest::createsAccountsOfHostileNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isUsual");

    for (const char *name : {"$(reboot)", "a'b", "j\xc3\xb6rg", "a*b", "1234", "a.b"}) {
        QTest::newRow(name) << QString::fromUtf8(name) << false;
    }
    QTest::newRow("a$") << text("a$") << true;
}

void NewAccountTest::createsAccountsOfHostileNames()
{
    QFETCH(QString, name);
    QFETCH(bool, isUsual);

    NewAccount account;
    account.userName = name;
    account.groups = QStringList(text("audio"));
    account.room = text("1");
    account.other = text("o");
    account.passwordHash = text("$6$a$b");
    QCOMPARE(account.plan().toText().contains(" --badname "), !isUsual);
    QCOMPARE(ShadowTools::run(account.plan()), QByteArray());
    const UserInfo user = readBack(name.toUtf8().constData());
    QCOMPARE(user.gecos(), text(",1,,,o"));
    QCOMPARE(user.groups().size(), 2);
    QVERIFY(shadowLine(name.toUtf8()).contains(":$6$a$b:"));
}

void NewAccountTest::joinsGroupWhoseNameIsNumber()
{
    NewAccount account;
    account.userName = text("ada");
    account.groups = QStringList({text("50"), text("audio")});
    QCOMPARE(account.plan().toText(),
             QByteArray("useradd --create-home --user-group --groups audio ada\ngpasswd --add ada 50\n"));
    QCOMPARE(ShadowTools::run(account.plan()), QByteArray());
    QCOMPARE(GroupInfo::getGroup(2000U).users(), QStringList(text("ada")));
    QCOMPARE(GroupInfo::getGroup(50U).users(), QStringList());
}

QTEST_GUILESS_MAIN(NewAccountTest)

#include "newaccounttest.moc"
