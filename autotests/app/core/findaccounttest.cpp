/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "findaccount.h"
#include "accountfixtures.h"
#include "sandbox.h"

#include <GroupInfo>
#include <UserInfo>

#include <QTest>

class FindAccountTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void findsAccount_data();
    void findsAccount();
    void prefersUtf8();
    void doesNotFindUnknownAccount();
};

void FindAccountTest::initTestCase()
{
    Sandbox::setAccounts("root:x:0:0::/:\nj\xc3\xbcrg:x:1000:1000::/:\nr\xfc"
                         "be:x:1001:1001::/:\n",
                         "root:x:0:\nj\xc3\xbcrg:x:1000:\nr\xfc"
                         "be:x:1001:\n");
}

void FindAccountTest::findsAccount_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<uint>("id");

    QTest::newRow("ASCII") << QStringLiteral("root") << 0U;
    QTest::newRow("UTF-8") << QStringLiteral(u"j\u00fcrg") << 1000U;
    QTest::newRow("Latin-1") << QStringLiteral(u"r\u00fcbe") << 1001U;
}

void FindAccountTest::findsAccount()
{
    QFETCH(QString, name);
    QFETCH(uint, id);

    const UserInfo user = FindAccount::user(name);
    QVERIFY(!user.isEmpty());
    QCOMPARE(user.uid(), id);
    const GroupInfo group = FindAccount::group(name);
    QVERIFY(!group.isEmpty());
    QCOMPARE(group.gid(), id);
}

void FindAccountTest::prefersUtf8()
{
    Sandbox::setAccounts("j\xfcrg:x:1001:1001::/:\nj\xc3\xbcrg:x:1000:1000::/:\n", "");
    QCOMPARE(FindAccount::user(QStringLiteral(u"j\u00fcrg")).uid(), 1000U);
}

void FindAccountTest::doesNotFindUnknownAccount()
{
    QVERIFY(FindAccount::user(QStringLiteral("nobody here")).isEmpty());
    QVERIFY(FindAccount::user(QStringLiteral(u"\u0416")).isEmpty());
    QVERIFY(FindAccount::group(QStringLiteral("nobody here")).isEmpty());
}

QTEST_GUILESS_MAIN(FindAccountTest)

#include "findaccounttest.moc"
