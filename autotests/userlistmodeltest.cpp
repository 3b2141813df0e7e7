/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "icontheme.h"
#include "messagerecorder.h"
#include "modellog.h"
#include "sandbox.h"

#include <UserListModel>

#include <QStandardItemModel>
#include <QTest>

#include <limits>

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

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}
}

class UserListModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isPlainTableModel();
    void registersItsEnumerations();
    void listsOrdinaryUsersByName();
    void listsUsersForGroup();
    void keepsFileOrderOfEqualNames();
    void isEmptyWithoutAccounts();

    void filtersUsers_data();
    void filtersUsers();
    void filterResetsOnce();
    void appliesFilterOnRequest();
    void isEmptyWhenTheFilterHidesAll();

    void givesTextsPerColumn();
    void givesNumbersForUids();
    void givesIcons();
    void givesNothingForOtherRoles();
    void givesNothingForForeignIndexes();
    void servesCheckStatesOnlyWhenSelectable();
    void labelsBothHeaders();

    void locksUsersOfThePrimaryGroup();
    void locksNobodyWithoutGroup();
    void flagsColumns();

    void checksBoxes();
    void uncheckingTakesAnyOtherValue_data();
    void uncheckingTakesAnyOtherValue();
    void refusesOtherData_data();
    void refusesOtherData();
    void checksLockedAndBoxlessRows();
    void keepsCheckedRowInViewUntilFiltered();

    void findsUserOfRow();
    void findsUserByName();

    void selectsNames();
    void selectsOneName();
    void leavesUnknownSelectedNamesOut();
    void togglesCheckBoxes();

    void removesRows_data();
    void removesRows();
    void removesAllUsersOfThatName();
    void keepsRemovedNamesSelected();
    void removesNothingWithNotification_data();
    void removesNothingWithNotification();

    void showsNewUser();
    void showsNewUserInEmptyModel();
    void losesNewUserWhenFiltered();
    void checksNewUser();

    void reloadsAll();
    void reloadsOneUserQuietly();
    void handlesTenThousandUsers();
};

void UserListModelTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
}

void UserListModelTest::isPlainTableModel()
{
    const QMetaObject &meta = Model::staticMetaObject;
    QCOMPARE(meta.className(), "UserListModel");
    QCOMPARE(meta.superClass(), &QAbstractTableModel::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void UserListModelTest::registersItsEnumerations()
{
    QCOMPARE(enumerationTexts(Model::staticMetaObject),
             words("Filter All=0 Ordinary=1 System=2 Administrators=3 Selected=4 Unselected=5 "
                   "Column NameColumn=0 UidColumn=1 SystemColumn=2"));
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

void UserListModelTest::keepsFileOrderOfEqualNames()
{
    QByteArray passwd;
    QStringList expected;
    for (int uid = 1000; uid < 1040; ++uid) {
        passwd += "twin:x:" + QByteArray::number(uid) + ":50::/:\n";
        expected.append(QStringLiteral("twin | %1 | No").arg(uid));
    }
    Sandbox::setAccounts(passwd, groupsFile);
    QCOMPARE(rowTexts(Model()), expected);
}

void UserListModelTest::isEmptyWithoutAccounts()
{
    Sandbox::remove(passwdPath());
    MessageRecorder recorder;
    Model model(staff(), words("bob"));
    const TableTester tester(&model);

    QCOMPARE(recorder.takeTexts().constLast(), userUnableToOpen(passwdPath()));
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(model.isEmpty());
    QCOMPARE(model.selectedUserNames(), QStringList());
    QVERIFY(!model.findUser(text("bob")).isValid());
    QVERIFY(!model.removeRows(0, 1));
    model.setFilter(Model::All);
    QVERIFY(model.isEmpty());
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

void UserListModelTest::filterResetsOnce()
{
    Model model;
    const TableTester tester(&model);
    ModelLog log(&model);

    model.setFilter(Model::All);
    QCOMPARE(log.take(), lines({"reset"}));
    model.setFilter(Model::All);
    QCOMPARE(log.take(), QStringList());
}

void UserListModelTest::appliesFilterOnRequest()
{
    Model model;
    const TableTester tester(&model);
    ModelLog log(&model);
    model.applyFilter();
    QCOMPARE(log.take(), lines({"reset"}));
    QCOMPARE(shownNames(model), text("Zed adam bob"));
}

void UserListModelTest::isEmptyWhenTheFilterHidesAll()
{
    Model model;
    const TableTester tester(&model);
    model.setFilter(Model::Selected);
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(model.isEmpty());
}

void UserListModelTest::givesTextsPerColumn()
{
    Model model;
    const TableTester tester(&model);
    model.setFilter(Model::All);

    QCOMPARE(
        rowTexts(model),
        lines({"Zed | 1001 | No", "adam | 1000 | No", "bob | 1002 | No", "nobody | 65534 | Yes", "root | 0 | Yes"}));
    QCOMPARE(model.columnCount(), 3);
}

void UserListModelTest::givesNumbersForUids()
{
    Sandbox::setAccounts("big:x:4294967294:50::/:\n", groupsFile);
    const Model model;
    const QVariant uid = model.index(0, Model::UidColumn).data();
    QCOMPARE(uid.userType(), int(QMetaType::UInt));
    QCOMPARE(uid.toUInt(), 4294967294u);
}

void UserListModelTest::givesIcons()
{
    const IconTheme theme(words("user user-system"));
    Model model;
    const TableTester tester(&model);
    model.setFilter(Model::All);

    const auto iconName = [&model](const char *user) {
        return model.findUser(text(user)).data(Qt::DecorationRole).value<QIcon>().name();
    };
    QCOMPARE(iconName("adam"), text("user"));
    QCOMPARE(iconName("root"), text("user-system"));
    QCOMPARE(iconName("nobody"), text("user-system"));

    const auto key = [&model](int row) {
        return model.index(row, 0).data(Qt::DecorationRole).value<QIcon>().cacheKey();
    };
    QCOMPARE(key(0), key(1));
}

void UserListModelTest::givesNothingForOtherRoles()
{
    const Model model(staff(), {});
    const QHash<int, QVector<int>> served{
        {Model::NameColumn, {Qt::DisplayRole, Qt::DecorationRole, Qt::CheckStateRole}},
        {Model::UidColumn, {Qt::DisplayRole}},
        {Model::SystemColumn, {Qt::DisplayRole}},
    };
    for (int column = 0; column < model.columnCount(); ++column) {
        for (int role = 0; role <= Qt::UserRole; ++role) {
            QCOMPARE(model.index(0, column).data(role).isValid(), served[column].contains(role));
        }
    }
    QVERIFY(!model.index(0, 0).data(-1).isValid());
}

void UserListModelTest::givesNothingForForeignIndexes()
{
    Model model(staff(), {});
    QStandardItemModel larger(10, 10);
    const QVector<QModelIndex> indexes{
        QModelIndex(), larger.index(3, 0), larger.index(9, 9), model.index(3, 0), model.index(-1, 0)};
    ModelLog log(&model);
    for (const QModelIndex &index : indexes) {
        QVERIFY(!model.data(index).isValid());
        QVERIFY(!model.setData(index, Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(model.flags(index), Qt::NoItemFlags);
        QVERIFY(!model.user(index));
    }
    const QModelIndex otherColumn = larger.index(0, 9);
    QVERIFY(!model.data(otherColumn).isValid());
    QVERIFY(!model.setData(otherColumn, Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(model.user(otherColumn)->name(), text("Zed"));
    QCOMPARE(log.take(), QStringList());

    const QModelIndex stale = model.index(2, 0);
    QVERIFY(model.removeRows(2, 1));
    QVERIFY(!model.data(stale).isValid());
    QVERIFY(!model.user(stale));
}

void UserListModelTest::servesCheckStatesOnlyWhenSelectable()
{
    Model model;
    const TableTester tester(&model);
    model.setSelectedUserName(text("adam"), true);
    QVERIFY(!model.index(1, 0).data(Qt::CheckStateRole).isValid());

    ModelLog log(&model);
    model.setSelectable(true);
    QVERIFY(model.isSelectable());
    QCOMPARE(log.take(), lines({"reset"}));
    const QVariant checked = model.index(1, 0).data(Qt::CheckStateRole);
    QCOMPARE(checked.userType(), int(QMetaType::Int));
    QCOMPARE(checked.toInt(), 2);
    const QVariant unchecked = model.index(0, 0).data(Qt::CheckStateRole);
    QCOMPARE(unchecked.userType(), int(QMetaType::Int));
    QCOMPARE(unchecked.toInt(), 0);

    model.setSelectable(true);
    QCOMPARE(log.take(), QStringList());
    model.setSelectable(false);
    QVERIFY(!model.isSelectable());
    QCOMPARE(log.take(), lines({"reset"}));
}

void UserListModelTest::labelsBothHeaders()
{
    const Model model;
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        QCOMPARE(model.headerData(0, orientation).toString(), text("Name"));
        QCOMPARE(model.headerData(1, orientation).toString(), text("UID"));
        QCOMPARE(model.headerData(2, orientation).toString(), text("System"));
        // The numbers of the base class.
        QCOMPARE(model.headerData(3, orientation), QVariant(4));
        QCOMPARE(model.headerData(-1, orientation), QVariant(0));
        QVERIFY(!model.headerData(0, orientation, Qt::ToolTipRole).isValid());
    }
}

void UserListModelTest::locksUsersOfThePrimaryGroup()
{
    Model model(staff(), words("bob"));
    const TableTester tester(&model);
    const int bob = model.findUser(text("bob")).row();
    for (int column = 0; column < model.columnCount(); ++column) {
        QCOMPARE(model.index(bob, column).flags(), Qt::NoItemFlags);
    }
    // A member, but of another primary group.
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

void UserListModelTest::flagsColumns()
{
    Model model;
    const TableTester tester(&model);
    const Qt::ItemFlags plain = Qt::ItemIsSelectable | Qt::ItemIsEnabled;

    QCOMPARE(model.index(0, 0).flags(), plain);
    QCOMPARE(model.index(0, 1).flags(), plain | Qt::ItemNeverHasChildren);
    QCOMPARE(model.index(0, 2).flags(), plain | Qt::ItemNeverHasChildren);
    model.setSelectable(true);
    QCOMPARE(model.index(0, 0).flags(), plain | Qt::ItemIsUserCheckable);
    QCOMPARE(model.index(0, 1).flags(), plain | Qt::ItemNeverHasChildren);
}

void UserListModelTest::checksBoxes()
{
    Model model(staff(), {});
    const TableTester tester(&model);
    ModelLog log(&model);

    QVERIFY(model.setData(model.index(1, 0), Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(log.take(), lines({"change 1,0-1,0 roles 10"}));
    QCOMPARE(model.selectedUserNames(), words("adam"));
    QCOMPARE(rowText(model, 1), text("[x] adam | 1000 | No"));

    // Checking what is checked is a change for the views.
    QVERIFY(model.setData(model.index(1, 0), text("2"), Qt::CheckStateRole));
    QCOMPARE(log.take(), lines({"change 1,0-1,0 roles 10"}));
    QCOMPARE(model.selectedUserNames(), words("adam"));
}

void UserListModelTest::uncheckingTakesAnyOtherValue_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("Unchecked") << QVariant(0);
    QTest::newRow("PartiallyChecked") << QVariant(1);
    QTest::newRow("3") << QVariant(3);
    QTest::newRow("true") << QVariant(true);
    QTest::newRow("text") << QVariant(text("x"));
    QTest::newRow("invalid") << QVariant();
}

void UserListModelTest::uncheckingTakesAnyOtherValue()
{
    QFETCH(QVariant, value);

    Model model(staff(), words("adam"));
    const TableTester tester(&model);
    ModelLog log(&model);
    QVERIFY(model.setData(model.index(1, 0), value, Qt::CheckStateRole));
    QCOMPARE(log.take(), lines({"change 1,0-1,0 roles 10"}));
    QCOMPARE(model.selectedUserNames(), QStringList());
}

void UserListModelTest::refusesOtherData_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");

    QTest::newRow("name") << 0 << int(Qt::EditRole);
    QTest::newRow("display") << 0 << int(Qt::DisplayRole);
    QTest::newRow("check of UID") << 1 << int(Qt::CheckStateRole);
    QTest::newRow("check of system") << 2 << int(Qt::CheckStateRole);
}

void UserListModelTest::refusesOtherData()
{
    QFETCH(int, column);
    QFETCH(int, role);

    Model model(staff(), {});
    const TableTester tester(&model);
    ModelLog log(&model);
    QVERIFY(!model.setData(model.index(0, column), Qt::Checked, role));
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(model.selectedUserNames(), QStringList());
}

void UserListModelTest::checksLockedAndBoxlessRows()
{
    Model model(staff(), {});
    const TableTester tester(&model);
    QVERIFY(model.setData(model.findUser(text("bob")), Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(model.selectedUserNames(), words("bob"));

    model.setSelectable(false);
    QVERIFY(model.setData(model.findUser(text("adam")), Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(model.selectedUserNames(), words("adam bob"));
}

void UserListModelTest::keepsCheckedRowInViewUntilFiltered()
{
    Model model(staff(), words("adam"));
    const TableTester tester(&model);
    model.setFilter(Model::Selected);
    QVERIFY(model.setData(model.index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
    QCOMPARE(rowTexts(model), lines({"[ ] adam | 1000 | No"}));
    model.applyFilter();
    QVERIFY(model.isEmpty());
}

void UserListModelTest::findsUserOfRow()
{
    Model model;
    const TableTester tester(&model);
    for (int column = 0; column < model.columnCount(); ++column) {
        const UserInfo *user = model.user(model.index(2, column));
        QVERIFY(user);
        QCOMPARE(user->name(), text("bob"));
        QCOMPARE(user->uid(), 1002u);
    }
}

void UserListModelTest::findsUserByName()
{
    Model model;
    const TableTester tester(&model);

    QCOMPARE(model.findUser(text("adam")), model.index(1, 0));
    QVERIFY(!model.findUser(text("Adam")).isValid());
    QVERIFY(!model.findUser(text("ada")).isValid());
    QVERIFY(!model.findUser(QString()).isValid());
    QVERIFY(!model.findUser(text("root")).isValid());
    model.setFilter(Model::All);
    QCOMPARE(model.findUser(text("root")), model.index(4, 0));
}

void UserListModelTest::selectsNames()
{
    Model model(staff(), words("adam"));
    const TableTester tester(&model);
    ModelLog log(&model);

    model.setSelectedUserNames(words("root bob"));
    QCOMPARE(log.take(), lines({"reset"}));
    QCOMPARE(model.selectedUserNames(), words("bob root"));
    model.setSelectedUserNames(words("root bob"));
    QCOMPARE(log.take(), lines({"reset"}));
    model.setSelectedUserNames({});
    QCOMPARE(model.selectedUserNames(), QStringList());
}

void UserListModelTest::selectsOneName()
{
    Model model(staff(), {});
    const TableTester tester(&model);
    ModelLog log(&model);

    model.setSelectedUserName(text("adam"), true);
    model.setSelectedUserName(text("adam"), true);
    QCOMPARE(log.take(), lines({"reset"}));
    QCOMPARE(model.selectedUserNames(), words("adam"));

    model.setSelectedUserName(text("bob"), false);
    QCOMPARE(log.take(), QStringList());
    model.setSelectedUserName(text("adam"), false);
    model.setSelectedUserName(text("adam"), false);
    QCOMPARE(log.take(), lines({"reset"}));
    QCOMPARE(model.selectedUserNames(), QStringList());
}

void UserListModelTest::leavesUnknownSelectedNamesOut()
{
    Model model(staff(), {QString(), text("ghost"), text("Zed")});
    const TableTester tester(&model);
    QCOMPARE(model.selectedUserNames(), words("Zed"));

    // Known all the same: the account may come into being later.
    Sandbox::write(passwdPath(), QByteArray(usersFile) + "ghost:x:1005:50::/:\n");
    model.reload();
    QCOMPARE(model.selectedUserNames(), words("Zed ghost"));
}

void UserListModelTest::togglesCheckBoxes()
{
    Model model;
    const TableTester tester(&model);
    model.setSelectedUserName(text("bob"), true);
    model.setSelectable(true);
    QCOMPARE(rowTexts(model), lines({"[ ] Zed | 1001 | No", "[ ] adam | 1000 | No", "[x] bob | 1002 | No"}));
    model.setFilter(Model::Unselected);
    QCOMPARE(shownNames(model), text("Zed adam nobody root"));
    model.setSelectedUserName(text("adam"), true);
    QCOMPARE(shownNames(model), text("Zed nobody root"));
}

void UserListModelTest::removesRows_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("removed");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QStringList>("notified");

    const QString all = text("Zed adam bob");
    const QStringList nothing;
    const int most = std::numeric_limits<int>::max();
    QTest::newRow("first two") << 0 << 2 << true << text("bob") << lines({"remove 0-1"});
    QTest::newRow("middle") << 1 << 1 << true << text("Zed bob") << lines({"remove 1-1"});
    QTest::newRow("last two") << 1 << 2 << true << text("Zed") << lines({"remove 1-2"});
    QTest::newRow("all") << 0 << 3 << true << QString() << lines({"remove 0-2"});
    QTest::newRow("too many") << 2 << 2 << false << all << nothing;
    QTest::newRow("behind the end") << 3 << 1 << false << all << nothing;
    QTest::newRow("before the start") << -1 << 1 << false << all << nothing;
    QTest::newRow("beyond all numbers") << 1 << most << false << all << nothing;
    QTest::newRow("none behind the end") << 4 << 0 << false << all << nothing;
}

void UserListModelTest::removesRows()
{
    QFETCH(int, row);
    QFETCH(int, count);
    QFETCH(bool, removed);
    QFETCH(QString, left);
    QFETCH(QStringList, notified);

    Model model;
    const TableTester tester(&model);
    ModelLog log(&model);

    QCOMPARE(model.removeRows(row, count), removed);
    QCOMPARE(log.take(), notified);
    QCOMPARE(shownNames(model), left);

    // Gone from the hidden records as well, and only they.
    model.applyFilter();
    QCOMPARE(shownNames(model), left);
    model.setFilter(Model::System);
    QCOMPARE(shownNames(model), text("nobody root"));
}

void UserListModelTest::removesAllUsersOfThatName()
{
    Sandbox::setAccounts("adam:x:1:50::/:\nadam:x:1000:50::/:\nbob:x:1001:50::/:\nbob:x:1002:50::/:\nbob:x:2:50::/:\n",
                         groupsFile);
    Model model;
    const TableTester tester(&model);
    QCOMPARE(rowTexts(model), lines({"adam | 1000 | No", "bob | 1001 | No", "bob | 1002 | No"}));

    QVERIFY(model.removeRows(0, 2));
    QCOMPARE(rowTexts(model), lines({"bob | 1002 | No"}));
    model.setFilter(Model::All);
    QCOMPARE(model.rowCount(), 0);
}

void UserListModelTest::keepsRemovedNamesSelected()
{
    Model model(staff(), words("Zed"));
    const TableTester tester(&model);
    QVERIFY(model.removeRows(0, 1));
    QCOMPARE(model.selectedUserNames(), QStringList());
    model.reload();
    QCOMPARE(model.selectedUserNames(), words("Zed"));
}

void UserListModelTest::removesNothingWithNotification_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("notified");

    QTest::newRow("none at the start") << 0 << 0 << lines({"remove 0--1"});
    QTest::newRow("none at the end") << 3 << 0 << lines({"remove 3-2"});
    QTest::newRow("less than none") << 2 << -2 << lines({"remove 2--1"});
}

void UserListModelTest::removesNothingWithNotification()
{
    QFETCH(int, row);
    QFETCH(int, count);
    QFETCH(QStringList, notified);

    // Without a tester: item models forbid such a removal.
    Model model;
    ModelLog log(&model);
    QVERIFY(model.removeRows(row, count));
    QCOMPARE(log.take(), notified);
    QCOMPARE(shownNames(model), text("Zed adam bob"));
}

void UserListModelTest::showsNewUser()
{
    Model model(staff(), {});
    const TableTester tester(&model);
    ModelLog log(&model);

    const QModelIndex index = model.setNewUserName(text("carol"));
    QCOMPARE(index, model.index(3, 0));
    QCOMPARE(log.take(), lines({"insert 3-3", "change 3,0-3,0 roles 0"}));
    QCOMPARE(rowText(model, 3), text("[ ] carol | 0 | Yes"));
    QVERIFY(model.user(index)->isEmpty());
    QCOMPARE(model.findUser(QString()), index);
    QCOMPARE(index.flags(), Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);

    QCOMPARE(model.setNewUserName(text("caroline")), index);
    QCOMPARE(log.take(), lines({"change 3,0-3,0 roles 0"}));
    QCOMPARE(rowText(model, 3), text("[ ] caroline | 0 | Yes"));
    QCOMPARE(model.rowCount(), 4);
}

void UserListModelTest::showsNewUserInEmptyModel()
{
    Model model;
    const TableTester tester(&model);
    model.setFilter(Model::Selected);
    const QModelIndex index = model.setNewUserName(QString());
    QCOMPARE(index, model.index(0, 0));
    QCOMPARE(rowTexts(model), lines({" | 0 | Yes"}));
    QVERIFY(!model.isEmpty());

    QVERIFY(model.removeRows(0, 1));
    QVERIFY(model.isEmpty());
}

void UserListModelTest::losesNewUserWhenFiltered()
{
    Model model;
    const TableTester tester(&model);
    model.setNewUserName(text("carol"));
    model.setFilter(Model::All);
    QCOMPARE(shownNames(model), text("Zed adam bob nobody root"));
    model.setNewUserName(text("dave"));
    QCOMPARE(shownNames(model), text("Zed adam bob nobody root dave"));
    model.reload();
    QCOMPARE(shownNames(model), text("Zed adam bob nobody root"));
}

void UserListModelTest::checksNewUser()
{
    Model model(staff(), {});
    const TableTester tester(&model);
    const QModelIndex index = model.setNewUserName(text("carol"));
    QVERIFY(model.setData(index, Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(rowText(model, 3), text("[x] carol | 0 | Yes"));
    QCOMPARE(model.selectedUserNames(), QStringList());

    // The mark belongs to the empty name, so the next placeholder row has it too.
    model.applyFilter();
    model.setNewUserName(text("dave"));
    QCOMPARE(rowText(model, 3), text("[x] dave | 0 | Yes"));
}

void UserListModelTest::reloadsAll()
{
    Model model(staff(), words("adam"));
    const TableTester tester(&model);
    model.setFilter(Model::All);
    Sandbox::setAccounts("new:x:1500:50::/:\nadam:x:999:50::/:\n", groupsFile);
    QCOMPARE(model.rowCount(), 5);

    ModelLog log(&model);
    model.reload();
    QCOMPARE(log.take(), lines({"reset"}));
    QCOMPARE(rowTexts(model), lines({"[x] adam | 999 | Yes", "[ ] new | 1500 | No"}));
    QCOMPARE(model.filter(), Model::All);
    QVERIFY(model.isSelectable());
}

void UserListModelTest::reloadsOneUserQuietly()
{
    Model model;
    const TableTester tester(&model);
    ModelLog log(&model);
    Sandbox::setAccounts("adam:x:500:50::/:\nZed:x:2000:50::/:\nbob:x:2001:50::/:\n", groupsFile);

    model.reloadUser(text("adam"));
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(rowTexts(model), lines({"Zed | 1001 | No", "adam | 500 | Yes", "bob | 1002 | No"}));

    // The full list has it, too: the system account is now filtered out.
    model.applyFilter();
    QCOMPARE(shownNames(model), text("Zed bob"));

    model.setNewUserName(text("carol"));
    model.reloadUser(text("ghost"));
    model.reloadUser(QString());
    QCOMPARE(rowTexts(model), lines({"Zed | 1001 | No", "bob | 1002 | No", "carol | 0 | Yes"}));
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
