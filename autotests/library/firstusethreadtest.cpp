/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "runtogether.h"
#include "sandbox.h"

#include <GroupListModel>
#include <UserListModel>
#include <UserUtils>

#include <QTest>
#include <QValidator>

#include <memory>

// Objects that are built on first use, by several threads at once. The library's sources are built with the
// thread sanitizer here, so that a race ends the program with a report.

namespace
{
using MakeValidator = QValidator *(*)(QObject *);
}

Q_DECLARE_METATYPE(MakeValidator)

class FirstUseThreadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void makesValidators_data();
    void makesValidators();
    void countsColumns();
};

void FirstUseThreadTest::initTestCase()
{
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts("root:x:0:0::/:\n", "root:x:0:\normel-admin:x:27:\n");
    Sandbox::write(adduserConfPath(), "NAME_REGEX=\"^[a-z]+$\"\n");
}

void FirstUseThreadTest::makesValidators_data()
{
    QTest::addColumn<MakeValidator>("make");
    QTest::addColumn<QString>("good");
    QTest::addColumn<QString>("bad");

    QTest::newRow("user name") << MakeValidator(UserUtils::createUserNameValidator) << QStringLiteral("alice")
                               << QStringLiteral("Alice");
    QTest::newRow("group name") << MakeValidator(UserUtils::createGroupNameValidator) << QStringLiteral("staff$")
                                << QStringLiteral("Staff");
    QTest::newRow("GECOS") << MakeValidator(UserUtils::createGecosValidator) << QStringLiteral("A,1,2,3,x")
                           << QStringLiteral("A,1,2,3,x,y");
}

void FirstUseThreadTest::makesValidators()
{
    QFETCH(MakeValidator, make);
    QFETCH(QString, good);
    QFETCH(QString, bad);

    std::atomic<int> wrong{0};
    runTogether([&] {
        for (int i = 0; i < 50; ++i) {
            const std::unique_ptr<QValidator> validator(make(nullptr));
            int position = 0;
            QString text = good;
            wrong += validator->validate(text, position) != QValidator::Acceptable;
            text = bad;
            wrong += validator->validate(text, position) != QValidator::Invalid;
        }
    });
    QCOMPARE(wrong.load(), 0);
}

void FirstUseThreadTest::countsColumns()
{
    const UserListModel users;
    const GroupListModel groups;
    std::atomic<int> wrong{0};
    runTogether([&] { wrong += users.columnCount() != 3 || groups.columnCount() != 3; });
    QCOMPARE(wrong.load(), 0);
}

QTEST_GUILESS_MAIN(FirstUseThreadTest)

#include "firstusethreadtest.moc"
