/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include <UserUtils>

#include <QTest>

#include <crypt.h>

// Compiled with the hash functions for platforms without a GOST library.

class NoGostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isNullForGost();
    void hashesBySha512();
};

void NoGostTest::isNullForGost()
{
    QVERIFY(UserUtils::saltPassword(QStringLiteral("secret"), true).isNull());
}

void NoGostTest::hashesBySha512()
{
    const QByteArray hash = UserUtils::saltPassword(QStringLiteral("secret"), false).toLatin1();
    QCOMPARE(QByteArray(crypt("secret", hash.constData())), hash);
}

QTEST_GUILESS_MAIN(NoGostTest)

#include "nogosttest.moc"
