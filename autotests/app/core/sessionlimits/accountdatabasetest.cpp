/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountdatabase.h"
#include "sandbox.h"

#include <QTest>

#include <dlfcn.h>
#include <pwd.h>

namespace
{
int lookups = 0;
int unsafeLookups = 0;

template<typename Function>
Function *original(Function * /*function*/, const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}
}

/** The C library's function, which the application's code finds here. */
Q_DECL_EXPORT int getpwnam_r(const char *name, passwd *entry, char *buffer, size_t size, passwd **result)
{
    ++lookups;
    static const auto next = original(&getpwnam_r, "getpwnam_r");
    return next(name, entry, buffer, size, result);
}

Q_DECL_EXPORT passwd *getpwnam(const char *name)
{
    ++unsafeLookups;
    static const auto next = original(&getpwnam, "getpwnam");
    return next(name);
}

class AccountDatabaseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void findsUsers();
    void findsUsersWithLongLines();
    void asksNobodyWhenThereIsOnlyTheFile();
    void asksOtherSources();
    void readsGroupsOnce();
    void readsNothingByItself();

private:
    static constexpr const char *passwd = "alice:x:1001:100::/home/alice:/bin/bash\n";
    static constexpr const char *group = "users:x:100:\nstaff:x:50:alice\n";
};

void AccountDatabaseTest::init()
{
    Sandbox::setNameService("files");
    Sandbox::setAccounts(passwd, group);
    lookups = 0;
    unsafeLookups = 0;
}

void AccountDatabaseTest::findsUsers()
{
    const PamLimits::AccountDatabase database = PamLimits::AccountDatabase::read();
    const auto alice = database.find("alice");
    QVERIFY(alice);
    QCOMPARE(alice->name, QByteArray("alice"));
    QCOMPARE(alice->uid, 1001U);
    QCOMPARE(alice->gid, 100U);
    QCOMPARE(alice->groups, (QVector<quint32>{100, 50}));
    QVERIFY(!database.find("bob"));
    // The window looks users up in a thread, while its dialogs use the buffer of getpwnam().
    QCOMPARE(unsafeLookups, 0);
}

void AccountDatabaseTest::findsUsersWithLongLines()
{
    const QByteArray home = "/home/" + QByteArray(20000, 'a');
    Sandbox::setAccounts("alice:x:1001:100::" + home + ":/bin/bash\n", group);
    const auto alice = PamLimits::AccountDatabase::read().find("alice");
    QVERIFY(alice);
    QCOMPARE(alice->uid, 1001U);
}

void AccountDatabaseTest::asksNobodyWhenThereIsOnlyTheFile()
{
    QVERIFY(!PamLimits::AccountDatabase::read().hasUserElsewhere("ghost"));
    QCOMPARE(lookups, 0);
}

void AccountDatabaseTest::asksOtherSources()
{
    Sandbox::setExtraAccounts("ghost:x:7000:7000::/home/ghost:/bin/sh\n", "");
    const PamLimits::AccountDatabase database = PamLimits::AccountDatabase::read();
    QVERIFY(database.hasUserElsewhere("ghost"));
    QVERIFY(!database.hasUserElsewhere("nobody here"));
    QVERIFY(lookups >= 2);
    QCOMPARE(unsafeLookups, 0);
    Sandbox::removeExtraAccounts();
}

void AccountDatabaseTest::readsGroupsOnce()
{
    Sandbox::setAccounts(passwd, QByteArray(group) + "+nis:x:70:\nstaff:x:51:\n");
    const PamLimits::AccountDatabase database = PamLimits::AccountDatabase::read();
    Sandbox::setAccounts(passwd, QByteArray());
    QCOMPARE(database.gidOf("staff"), std::make_optional(50U));
    QVERIFY(database.hasGroup(51));
    QCOMPARE(database.gidOf("+nis"), std::optional<quint32>());
    QVERIFY(!database.hasGroup(70));
    const auto alice = database.find("alice");
    QVERIFY(alice);
    QCOMPARE(alice->groups, (QVector<quint32>{100, 50}));
}

void AccountDatabaseTest::readsNothingByItself()
{
    const PamLimits::AccountDatabase database;
    Sandbox::setAccounts(passwd, "new:x:60:\n");
    QCOMPARE(database.gidOf("new"), std::make_optional(60U));
}

QTEST_GUILESS_MAIN(AccountDatabaseTest)

#include "accountdatabasetest.moc"
