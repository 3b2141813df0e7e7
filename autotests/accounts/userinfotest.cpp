/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "describe.h"
#include "localencoding.h"
#include "sandbox.h"
#include "systemids.h"
#include "userfixtures.h"

#include <UserInfo>

#include <QTest>

#include <pwd.h>

class UserInfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isEmptyByDefault();
    void knowsSystemAccounts_data();
    void knowsSystemAccounts();
    void isEmptyWithoutNameWhateverTheUid();
    void superuserIsNotEmpty();
    void decodesFields_data();
    void decodesFields();
    void decodesFieldsInAnyLocale_data();
    void decodesFieldsInAnyLocale();
    void givesNullStringsForNullFields();

    void buildsRecordFromStaticEntry();
};

void UserInfoTest::init()
{
    setUsers();
}

void UserInfoTest::isEmptyByDefault()
{
    const UserInfo user;
    QVERIFY(user.isEmpty());
    QCOMPARE(describe(user),
             QStringLiteral("null | 0 | 0 | null | null | null | primary null(0: ) | groups  | no admin"));
    QVERIFY(user.groupNames().isEmpty());
}

void UserInfoTest::knowsSystemAccounts_data()
{
    addSystemIds(4294967294u);
}

void UserInfoTest::knowsSystemAccounts()
{
    QFETCH(uint, id);
    QFETCH(bool, system);
    Sandbox::write(passwdPath(), "some:x:" + QByteArray::number(id) + ":1000::/:\n");

    QCOMPARE(user("some").uid(), id);
    QCOMPARE(user("some").isSystem(), system);
}

void UserInfoTest::isEmptyWithoutNameWhateverTheUid()
{
    char nothing[] = "";
    passwd entry{nothing, nothing, 1000, 1000, nothing, nothing, nothing};
    const UserInfo user = UserInfo::getUser(&entry);

    QVERIFY(user.isEmpty());
    QVERIFY(!user.name().isNull());
    QCOMPARE(user.uid(), 1000u);
}

void UserInfoTest::superuserIsNotEmpty()
{
    QVERIFY(!user("root").isEmpty());
    QCOMPARE(user("root").uid(), 0u);
}

void UserInfoTest::decodesFields_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("gecos");
    QTest::addColumn<QString>("home");
    QTest::addColumn<QString>("shell");

    const QString home = QStringLiteral("/home/x");
    const QString shell = QStringLiteral("/bin/sh");
    QTest::newRow("ASCII") << QByteArray("X,1,2,3:/home/x:/bin/sh") << "X,1,2,3" << home << shell;
    QTest::newRow("UTF-8 GECOS") << QByteArray("Ren\xc3\xa9 \xd0\x96:/home/x:/bin/sh")
                                 << QStringLiteral(u"Ren\u00e9 \u0416") << home << shell;
    QTest::newRow("invalid UTF-8 in GECOS")
        << QByteArray("Ren\xe9:/home/x:/bin/sh") << QStringLiteral(u"Ren\ufffd") << home << shell;
    QTest::newRow("Latin-1 home") << QByteArray("X:/home/ren\xe9:/bin/sh") << "X" << QStringLiteral(u"/home/ren\u00e9")
                                  << shell;
    QTest::newRow("UTF-8 home, a character for each byte")
        << QByteArray("X:/home/ren\xc3\xa9:/bin/sh") << "X" << QStringLiteral(u"/home/ren\u00c3\u00a9") << shell;
    QTest::newRow("Latin-1 shell") << QByteArray("X:/home/x:/bin/\xe9") << "X" << home
                                   << QStringLiteral(u"/bin/\u00e9");
    QTest::newRow("empty fields") << QByteArray("::") << ""
                                  << ""
                                  << "";
}

void UserInfoTest::decodesFields()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, gecos);
    QFETCH(QString, home);
    QFETCH(QString, shell);
    Sandbox::write(passwdPath(), "x:x:1000:1000:" + line + '\n');

    const UserInfo x = user("x");
    QCOMPARE(x.gecos(), gecos);
    QCOMPARE(x.home(), home);
    QCOMPARE(x.shell(), shell);
    QVERIFY(!x.gecos().isNull());
    QVERIFY(!x.home().isNull());
    QVERIFY(!x.shell().isNull());
}

void UserInfoTest::decodesFieldsInAnyLocale_data()
{
    decodesFields_data();
}

void UserInfoTest::decodesFieldsInAnyLocale()
{
    const LocalEncoding cyrillic("KOI8-R");
    decodesFields();
}

void UserInfoTest::givesNullStringsForNullFields()
{
    char name[] = "alice";
    passwd entry{name, nullptr, 1000, 1000, nullptr, nullptr, nullptr};
    const UserInfo alice = UserInfo::getUser(&entry);

    QCOMPARE(alice.name(), QStringLiteral("alice"));
    QVERIFY(alice.gecos().isNull());
    QVERIFY(alice.home().isNull());
    QVERIFY(alice.shell().isNull());
}

void UserInfoTest::buildsRecordFromStaticEntry()
{
    QCOMPARE(describe(UserInfo::getUser(getpwnam("alice"))), describe(user("alice")));

    QStringList users;
    FILE *file = fopen("/etc/passwd", "r");
    QVERIFY(file);
    while (passwd *entry = fgetpwent(file)) {
        users.append(describe(UserInfo::getUser(entry)));
    }
    fclose(file);
    QCOMPARE(users, describe(UserInfo::getUsers()));
}

QTEST_GUILESS_MAIN(UserInfoTest)

#include "userinfotest.moc"
