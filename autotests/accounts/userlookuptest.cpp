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

class UserLookupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void findsUserByName();
    void findsUserByUid();
    void findsUserWithLatin1Name();
    void takesFirstOfLinesThatShareNameOrUid();
    void findsNothingQuietly();

    void reloadsEverythingButTheName();

    void asksNameServiceForUsers();
};

void UserLookupTest::init()
{
    setUsers();
}

void UserLookupTest::findsUserByName()
{
    MessageRecorder recorder;
    QCOMPARE(describe(user("alice")),
             QStringLiteral("alice | 1000 | 1000 | Alice A.,Room 1,, | /home/alice | /bin/bash | "
                            "primary alice(1000: alice) | "
                            "groups alice(1000: alice), ormel-admin(27: alice), audio(29: zed alice) | admin"));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserLookupTest::findsUserByUid()
{
    QCOMPARE(describe(UserInfo::getUser(1000u)), describe(user("alice")));
    QCOMPARE(UserInfo::getUser(0u).name(), QStringLiteral("root"));

    Sandbox::write(passwdPath(), "first:x:0:0::/:\nbig:x:4294967294:50::/:\nhalf:x:2147483648:50::/:\n");
    QCOMPARE(UserInfo::getUser(4294967294u).name(), QStringLiteral("big"));
    QCOMPARE(UserInfo::getUser(2147483648u).name(), QStringLiteral("half"));
}

void UserLookupTest::findsUserWithLatin1Name()
{
    Sandbox::setAccounts("ren\xe9:x:1000:1000::/:\n", "ren\xe9:x:1000:\nmusic:x:60:ren\xe9\n");

    const QString name = QStringLiteral(u"ren\u00e9");
    const UserInfo rene = UserInfo::getUser(name);
    QCOMPARE(rene.name(), name);
    QCOMPARE(rene.primaryGroup().name(), name);
    QCOMPARE(rene.groupNames(), QStringList({name, QStringLiteral("music")}));
    QCOMPARE(rene.groups().at(1).users(), QStringList(name));

    UserInfo reloaded = rene;
    reloaded.reload();
    QCOMPARE(describe(reloaded), describe(rene));
}

void UserLookupTest::takesFirstOfLinesThatShareNameOrUid()
{
    Sandbox::write(passwdPath(),
                   "one:x:1000:1000::/1:\n"
                   "two:x:1000:1000::/2:\n"
                   "two:x:1001:1000::/3:\n");
    QCOMPARE(UserInfo::getUser(1000u).home(), QStringLiteral("/1"));
    QCOMPARE(user("two").home(), QStringLiteral("/2"));
    QCOMPARE(UserInfo::getUser(1001u).home(), QStringLiteral("/3"));
}

void UserLookupTest::findsNothingQuietly()
{
    MessageRecorder recorder;
    const QString empty = describe(UserInfo());
    QCOMPARE(describe(user("nosuchuser")), empty);
    QCOMPARE(describe(user("Alice")), empty);
    QCOMPARE(describe(user("")), empty);
    QCOMPARE(describe(UserInfo::getUser(QString())), empty);
    QCOMPARE(describe(UserInfo::getUser(4711u)), empty);
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserLookupTest::reloadsEverythingButTheName()
{
    UserInfo alice = user("alice");
    const QString before = describe(alice);
    Sandbox::setAccounts("alice:x:2000:29:Al:/srv/al:/bin/sh\n", "ormel-admin:x:27:\naudio:x:29:\n");
    QCOMPARE(describe(alice), before);

    MessageRecorder recorder;
    alice.reload();
    QCOMPARE(describe(alice),
             QStringLiteral("alice | 2000 | 29 | Al | /srv/al | /bin/sh | "
                            "primary audio(29: alice) | groups audio(29: alice) | no admin"));
    QCOMPARE(describe(alice), describe(user("alice")));
    QCOMPARE(recorder.takeTexts(), QStringList());
}

void UserLookupTest::asksNameServiceForUsers()
{
    Sandbox::setExtraAccounts("extra:x:3000:3000:Extra:/:/bin/sh\n", "extra:x:3000:\n");

    const QString extra = QStringLiteral("extra | 3000 | 3000 | Extra | / | /bin/sh | "
                                         "primary extra(3000: ) | groups extra(3000: ) | no admin");
    QCOMPARE(describe(user("extra")), extra);
    QCOMPARE(describe(UserInfo::getUser(3000u)), extra);
}

QTEST_GUILESS_MAIN(UserLookupTest)

#include "userlookuptest.moc"
