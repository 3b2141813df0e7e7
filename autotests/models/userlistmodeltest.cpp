/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "messagerecorder.h"
#include "modellog.h"
#include "sandbox.h"
#include "texts.h"

#include <UserListModel>

#include <QTest>

namespace
{
const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                         "bob:x:1002:50::/home/bob:/bin/sh\n"
                         "adam:x:1000:1000::/home/adam:/bin/sh\n"
                         "Zed:x:1001:1001::/home/zed:/bin/sh\n"
                         "nobody:x:65534:65534:nobody:/nonexistent:/usr/sbin/nologin\n";

const char groupsFile[] = "root:x:0:\n"
                          "ormel-admin:x:27:bob,nobody\n"
                          "staff:x:50:adam\n"
                          "adam:x:1000:\n"
                          "zed:x:1001:\n"
                          "nogroup:x:65534:\n";

using Model = UserListModel;

GroupInfo staff()
{
    return GroupInfo::getGroup(QStringLiteral("staff"));
}
}

class UserListModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void listsOrdinaryUsersByName();
    void listsUsersForGroup();

    void filtersUsers_data();
    void filtersUsers();

    void locksUsersOfThePrimaryGroup();
    void locksNobodyWithoutGroup();

    void reloadsNoNewUser();
    void reloadsUserWithEmptyName();
    void reloadsHiddenUserWithEmptyName();
    void handlesTenThousandUsers();
};

void UserListModelTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
}

void UserListModelTest::listsOrdinaryUsersByName()
{
    Model model;
    const TableTester tester(&model);

    QCOMPARE(model.filter(), Model::Ordinary);
    QVERIFY(!model.isSelectable());
    QVERIFY(!model.isEmpty());
    QCOMPARE(rowTexts(model), lines({"Zed | 1001 | No", "adam | 1000 | No", "bob | 1002 | No"}));
    QCOMPARE(model.selectedUserNames(), QStringList());
}

void UserListModelTest::listsUsersForGroup()
{
    Model model(staff(), words("bob root bob"));
    const TableTester tester(&model);

    QCOMPARE(model.filter(), Model::Ordinary);
    QVERIFY(model.isSelectable());
    QCOMPARE(rowTexts(model), lines({"[ ] Zed | 1001 | No", "[ ] adam | 1000 | No", "[x] bob | 1002 | No"}));
    QCOMPARE(model.selectedUserNames(), words("bob root"));
}

void UserListModelTest::filtersUsers_data()
{
    QTest::addColumn<int>("filter");
    QTest::addColumn<QString>("shown");

    const QString all = text("Zed adam bob nobody root");
    QTest::newRow("All") << 0 << all;
    QTest::newRow("Ordinary") << 1 << text("Zed adam bob");
    QTest::newRow("System") << 2 << text("nobody root");
    QTest::newRow("Administrators") << 3 << text("bob nobody");
    QTest::newRow("Selected") << 4 << text("adam root");
    QTest::newRow("Unselected") << 5 << text("Zed bob nobody");
    QTest::newRow("6") << 6 << all;
    QTest::newRow("1000") << 1000 << all;
    QTest::newRow("-1") << -1 << all;
}

void UserListModelTest::filtersUsers()
{
    QFETCH(int, filter);
    QFETCH(QString, shown);

    Model model(staff(), words("root adam"));
    const TableTester tester(&model);
    model.setFilter(static_cast<Model::Filter>(filter));

    QCOMPARE(model.filter(), filter);
    QCOMPARE(shownNames(model), shown);
}

void UserListModelTest::locksUsersOfThePrimaryGroup()
{
    Model model(staff(), words("bob"));
    const TableTester tester(&model);
    const int bob = model.findUser(text("bob")).row();
    for (int column = 0; column < model.columnCount(); ++column) {
        QCOMPARE(model.index(bob, column).flags(), Qt::NoItemFlags);
    }
    // A member with another primary group.
    const QModelIndex adam = model.findUser(text("adam"));
    QCOMPARE(adam.flags(), Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
}

void UserListModelTest::locksNobodyWithoutGroup()
{
    // Root's gid is that of an empty record.
    Model model(GroupInfo(), {});
    const TableTester tester(&model);
    model.setFilter(Model::All);
    for (int row = 0; row < model.rowCount(); ++row) {
        QVERIFY(model.index(row, 0).flags().testFlag(Qt::ItemIsUserCheckable));
    }
}

void UserListModelTest::reloadsNoNewUser()
{
    Model model;
    const TableTester tester(&model);
    model.setNewUserName(text("carol"));
    ModelLog log(&model);
    MessageRecorder recorder;
    model.reloadUser(QString());
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(recorder.takeTexts(), QStringList());
    QCOMPARE(rowTexts(model), lines({"Zed | 1001 | No", "adam | 1000 | No", "bob | 1002 | No", "carol | 0 | Yes"}));
}

void UserListModelTest::reloadsUserWithEmptyName()
{
    Sandbox::setAccounts(":x:1000:1000::/:/bin/sh\nbob:x:1001:1000::/:/bin/sh\n", groupsFile);
    Model model;
    const TableTester tester(&model);
    Sandbox::setAccounts(":x:1005:1000::/:/bin/sh\nbob:x:1001:1000::/:/bin/sh\n", groupsFile);
    model.setNewUserName(text("carol"));

    model.reloadUser(QString());
    QCOMPARE(model.index(0, Model::UidColumn).data().toUInt(), 1005u);
    QCOMPARE(model.index(2, Model::UidColumn).data().toUInt(), 0u);
    model.applyFilter();
    QCOMPARE(model.index(0, Model::UidColumn).data().toUInt(), 1005u);
}

void UserListModelTest::reloadsHiddenUserWithEmptyName()
{
    Sandbox::setAccounts(":x:1000:1000::/:/bin/sh\n", groupsFile);
    Model model;
    const TableTester tester(&model);
    model.setFilter(Model::System);
    const QModelIndex placeholder = model.setNewUserName(text("carol"));
    Sandbox::setAccounts(":x:1005:1000::/:/bin/sh\n", groupsFile);

    model.reloadUser(QString());
    QCOMPARE(rowText(model, placeholder.row()), text("carol | 0 | Yes"));
    model.setFilter(Model::Ordinary);
    QCOMPARE(model.index(0, Model::UidColumn).data().toUInt(), 1005u);
}

void UserListModelTest::handlesTenThousandUsers()
{
    Sandbox::setAccounts(manyUsers(10000), groupsFile);
    Model model(GroupInfo(), words("user9999 user0 user5000"));
    const TableTester tester(&model);

    QCOMPARE(model.rowCount(), 10000);
    QCOMPARE(model.selectedUserNames(), words("user0 user5000 user9999"));
    model.setFilter(Model::Selected);
    QCOMPARE(shownNames(model), text("user0 user5000 user9999"));
    model.setFilter(Model::Unselected);
    QCOMPARE(model.rowCount(), 9997);
    model.setSelectedUserName(text("user42"), true);
    QCOMPARE(model.rowCount(), 9996);
    QVERIFY(model.removeRows(0, 2));
    QCOMPARE(model.rowCount(), 9994);
}

QTEST_MAIN(UserListModelTest)

#include "userlistmodeltest.moc"
