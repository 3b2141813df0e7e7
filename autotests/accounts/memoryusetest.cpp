/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "sandbox.h"

#include <UserInfo>

#include <QTest>

#include <malloc.h>

class AccountMemoryUseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsTextsAndMembersOnce();
};

/** The texts are so long that an additional copy of a name, shell or group in each record exceeds the bound. */
void AccountMemoryUseTest::keepsTextsAndMembersOnce()
{
    constexpr size_t length = 1000;
    constexpr int count = 500;
    const QByteArray suffix = QByteArray(length, 'n') + ":x:";
    QByteArray users;
    for (int i = 0; i < count; ++i) {
        users +=
            QByteArray::number(i) + suffix + QByteArray::number(1000 + i) + ":50::/:/" + QByteArray(length, 's') + '\n';
    }
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts(users, "ormel-admin:x:27:\n" + QByteArray(length, 'g') + ":x:50:\n");

    UserInfo::getUsers(); // the C library keeps its buffers
    const size_t before = mallinfo2().uordblks;
    const QList<UserInfo> all = UserInfo::getUsers();
    const size_t bytes = (mallinfo2().uordblks - before) / count;
    QCOMPARE(all.size(), count);
    QCOMPARE(all.constFirst().primaryGroup().users().size(), count);
    QVERIFY2(bytes < 3 * length, qPrintable(QString::number(bytes)));
}

QTEST_GUILESS_MAIN(AccountMemoryUseTest)

#include "memoryusetest.moc"
