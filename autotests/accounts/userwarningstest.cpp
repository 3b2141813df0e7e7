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

class UserWarningsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void warnsForEachRecordWithoutAdministrators();
    void warnsInTheOrderOfTheLookups();
    void warnsOfUnreadablePasswdForEachGroup();
    void warnsInDefaultCategoryWithoutContext();

    void reloadWarnsLikeALookup();
};

void UserWarningsTest::init()
{
    setUsers();
}

void UserWarningsTest::warnsForEachRecordWithoutAdministrators()
{
    Sandbox::write(groupPath(), "root:x:0:\nalice:x:1000:\nzed:x:1001:\nnogroup:x:65534:\n");
    MessageRecorder recorder;

    UserInfo::getUsers();
    const QString warning = noAdministrators();
    QCOMPARE(recorder.takeTexts(), QStringList({warning, warning, warning, warning}));

    user("alice");
    QCOMPARE(recorder.takeTexts(), QStringList(warning));

    UserInfo::getUserGroups(getpwnam("alice"));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserWarningsTest::warnsInTheOrderOfTheLookups()
{
    Sandbox::setAccounts("alice:x:1000:4711::/:\n"
                         "bob:x:1001:29::/:\n"
                         "carol:x:1002:4711::/:\n",
                         "audio:x:29:alice\n");
    MessageRecorder recorder;

    UserInfo::getUsers();
    QCOMPARE(recorder.takeTexts(),
             QStringList({
                 groupNotFound(QString()),
                 noAdministrators(),
                 noAdministrators(),
                 groupNotFound(QString()),
                 noAdministrators(),
             }));
}

void UserWarningsTest::warnsOfUnreadablePasswdForEachGroup()
{
    Sandbox::setExtraAccounts("extra:x:3000:3000::/:\n", "extra:x:3000:\nteam:x:3001:extra\n");
    Sandbox::remove(passwdPath());
    Sandbox::write(groupPath(), "audio:x:29:extra\n");
    MessageRecorder recorder;

    const UserInfo extra = user("extra");
    QCOMPARE(groupNames(extra), QStringLiteral("extra audio team"));
    QCOMPARE(describe(extra.primaryGroup()), QStringLiteral("extra(3000: )"));
    const QString unreadable = groupUnableToOpen(passwdPath());
    QCOMPARE(recorder.takeTexts(),
             QStringList({
                 unreadable, // the group extra
                 unreadable, // audio
                 unreadable, // team
                 unreadable, // extra again, as the primary group
                 noAdministrators(),
             }));

    Sandbox::write(groupPath(), "ormel-admin:x:27:\n");
    user("extra");
    QCOMPARE(recorder.takeTexts(), QStringList({unreadable, unreadable, unreadable, unreadable}));
}

void UserWarningsTest::warnsInDefaultCategoryWithoutContext()
{
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;

    UserInfo::getUsers();
    QCOMPARE(recorder.messages().size(), 1);
    QVERIFY(recorder.messages().constFirst().isPlainWarning());
}

void UserWarningsTest::reloadWarnsLikeALookup()
{
    UserInfo alice = user("alice");
    Sandbox::write(groupPath(), "alice:x:1000:\n");
    MessageRecorder recorder;

    alice.reload();
    QVERIFY(!alice.isOrmelAdmin());
    QCOMPARE(recorder.takeTexts(), QStringList(noAdministrators()));
}

QTEST_GUILESS_MAIN(UserWarningsTest)

#include "userwarningstest.moc"
