/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "icontheme.h"
#include "messagerecorder.h"
#include "modellog.h"
#include "sandbox.h"

#include <GroupListModel>

#include <QStandardItemModel>
#include <QTest>

#include <limits>

namespace
{
const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                         "zoe:x:1000:1000::/home/zoe:/bin/sh\n"
                         "yan:x:1001:100::/home/yan:/bin/sh\n";

const char groupsFile[] = "zoe:x:1000:\n"
                          "video:x:1044:zoe\n"
                          "audio:x:29:zoe\n"
                          "users:x:100:\n"
                          "Team:x:1001:yan,zoe\n";

using Model = GroupListModel;

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

QString zoe()
{
    return text("zoe");
}
}

class GroupListModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isPlainTableModel();
    void registersItsEnumerations();
    void listsAllGroupsByName();
    void listsGroupsForUser();
    void keepsFileOrderOfEqualNames();
    void isEmptyWithoutGroups();

    void filtersGroups_data();
    void filtersGroups();
    void filterResetsOnce();
    void appliesFilterOnRequest();
    void isEmptyWhenTheFilterHidesAll();

    void givesNumbersForGids();
    void givesIcons();
    void givesNothingForOtherRoles();
    void givesNothingForForeignIndexes();
    void servesCheckStatesOnlyWhenSelectable();
    void labelsBothHeaders();

    void locksTheUsersOwnGroup();
    void locksFirstOfEqualOwnGroups();
    void locksNoGroupOfAnotherName();
    void locksNothingWithoutUser();
    void flagsColumns();

    void checksBoxes();
    void uncheckingTakesAnyOtherValue_data();
    void uncheckingTakesAnyOtherValue();
    void refusesOtherData_data();
    void refusesOtherData();
    void checksLockedAndBoxlessRows();
    void keepsCheckedRowInViewUntilFiltered();

    void findsGroupOfRow();
    void findsGroupByName();

    void putsOwnGroupFirstAmongSelected_data();
    void putsOwnGroupFirstAmongSelected();
    void selectsNames();
    void selectsOneName();
    void leavesUnknownSelectedNamesOut();

    void removesRows_data();
    void removesRows();
    void removesAllGroupsOfThatName();
    void keepsRemovedNamesSelected();
    void removesNothingWithNotification_data();
    void removesNothingWithNotification();

    void showsNewGroup();
    void showsNewGroupInEmptyModel();
    void losesNewGroupWhenFiltered();
    void checksNewGroup();
    void neverLocksNewGroup();

    void reloadsAll();
    void looksForOwnGroupOnlyWhenReloaded();
    void reloadsOneGroupQuietly();
    void reloadsGroupThatIsGone();
    void warnsWhenNewGroupIsReloaded();
    void handlesTenThousandGroups();
};

void GroupListModelTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
}

void GroupListModelTest::isPlainTableModel()
{
    const QMetaObject &meta = Model::staticMetaObject;
    QCOMPARE(meta.className(), "GroupListModel");
    QCOMPARE(meta.superClass(), &QAbstractTableModel::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void GroupListModelTest::registersItsEnumerations()
{
    QCOMPARE(enumerationTexts(Model::staticMetaObject),
             words("Filter All=0 Ordinary=1 System=2 Selected=3 Unselected=4 "
                   "Column NameColumn=0 GidColumn=1 SystemColumn=2"));
}

void GroupListModelTest::listsAllGroupsByName()
{
    Model model;
    const TableTester tester(&model);

    QCOMPARE(model.filter(), Model::All);
    QVERIFY(!model.isSelectable());
    QVERIFY(!model.isEmpty());
    QCOMPARE(model.columnCount(), 3);
    QCOMPARE(
        rowTexts(model),
        lines({"Team | 1001 | No", "audio | 29 | Yes", "users | 100 | Yes", "video | 1044 | No", "zoe | 1000 | No"}));
    QCOMPARE(model.selectedGroupNames(), QStringList());
}

void GroupListModelTest::listsGroupsForUser()
{
    Model model(text("yan"), words("users Team users"));
    const TableTester tester(&model);

    QCOMPARE(model.filter(), Model::All);
    QVERIFY(model.isSelectable());
    QCOMPARE(rowTexts(model),
             lines({"[x] Team | 1001 | No",
                    "[ ] audio | 29 | Yes",
                    "[x] users | 100 | Yes",
                    "[ ] video | 1044 | No",
                    "[ ] zoe | 1000 | No"}));
}

void GroupListModelTest::keepsFileOrderOfEqualNames()
{
    QByteArray group;
    QStringList expected;
    for (int gid = 1000; gid < 1040; ++gid) {
        group += "twin:x:" + QByteArray::number(gid) + ":\n";
        expected.append(QStringLiteral("twin | %1 | No").arg(gid));
    }
    Sandbox::setAccounts(usersFile, group);
    QCOMPARE(rowTexts(Model()), expected);
}

void GroupListModelTest::isEmptyWithoutGroups()
{
    Sandbox::remove(groupPath());
    MessageRecorder recorder;
    Model model(zoe(), words("audio"));
    const TableTester tester(&model);

    QCOMPARE(recorder.takeTexts(), QStringList(groupUnableToOpen(groupPath())));
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(model.isEmpty());
    QCOMPARE(model.selectedGroupNames(), QStringList());
    QVERIFY(!model.findGroup(text("audio")).isValid());
    QVERIFY(!model.removeRows(0, 1));
}

void GroupListModelTest::filtersGroups_data()
{
    QTest::addColumn<int>("filter");
    QTest::addColumn<QString>("shown");

    const QString all = text("Team audio users video zoe");
    QTest::newRow("All") << 0 << all;
    QTest::newRow("Ordinary") << 1 << text("Team video zoe");
    QTest::newRow("System") << 2 << text("audio users");
    QTest::newRow("Selected") << 3 << text("Team audio");
    QTest::newRow("Unselected") << 4 << text("users video zoe");
    QTest::newRow("5") << 5 << all;
    QTest::newRow("1000") << 1000 << all;
    QTest::newRow("-1") << -1 << all;
}

void GroupListModelTest::filtersGroups()
{
    QFETCH(int, filter);
    QFETCH(QString, shown);

    Model model(zoe(), words("audio Team"));
    const TableTester tester(&model);
    model.setFilter(static_cast<Model::Filter>(filter));

    QCOMPARE(model.filter(), filter);
    QCOMPARE(shownNames(model), shown);
}

void GroupListModelTest::filterResetsOnce()
{
    Model model;
    const TableTester tester(&model);
    ModelLog log(&model);

    model.setFilter(Model::Ordinary);
    QCOMPARE(log.take(), lines({"reset"}));
    model.setFilter(Model::Ordinary);
    QCOMPARE(log.take(), QStringList());
}

void GroupListModelTest::appliesFilterOnRequest()
{
    Model model;
    const TableTester tester(&model);
    ModelLog log(&model);
    model.applyFilter();
    QCOMPARE(log.take(), lines({"reset"}));
    QCOMPARE(shownNames(model), text("Team audio users video zoe"));
}

void GroupListModelTest::isEmptyWhenTheFilterHidesAll()
{
    Model model;
    const TableTester tester(&model);
    model.setFilter(Model::Selected);
    QVERIFY(model.isEmpty());
}

void GroupListModelTest::givesNumbersForGids()
{
    Sandbox::setAccounts(usersFile, "big:x:4294967294:\n");
    const Model model;
    const QVariant gid = model.index(0, Model::GidColumn).data();
    QCOMPARE(gid.userType(), int(QMetaType::UInt));
    QCOMPARE(gid.toUInt(), 4294967294u);
}

void GroupListModelTest::givesIcons()
{
    const IconTheme theme(words("group group-system"));
    Model model;
    const TableTester tester(&model);

    const auto icon = [&model](int row) { return model.index(row, 0).data(Qt::DecorationRole).value<QIcon>(); };
    QCOMPARE(icon(0).name(), text("group"));
    QCOMPARE(icon(1).name(), text("group-system"));
    QCOMPARE(icon(2).name(), text("group-system"));
    QCOMPARE(icon(1).cacheKey(), icon(2).cacheKey());
}

void GroupListModelTest::givesNothingForOtherRoles()
{
    const Model model(zoe(), {});
    const QHash<int, QVector<int>> served{
        {Model::NameColumn, {Qt::DisplayRole, Qt::DecorationRole, Qt::CheckStateRole}},
        {Model::GidColumn, {Qt::DisplayRole}},
        {Model::SystemColumn, {Qt::DisplayRole}},
    };
    for (int column = 0; column < model.columnCount(); ++column) {
        for (int role = 0; role <= Qt::UserRole; ++role) {
            QCOMPARE(model.index(0, column).data(role).isValid(), served[column].contains(role));
        }
    }
}

void GroupListModelTest::givesNothingForForeignIndexes()
{
    Model model(zoe(), {});
    QStandardItemModel larger(10, 10);
    const QVector<QModelIndex> indexes{QModelIndex(), larger.index(5, 0), larger.index(9, 9), model.index(5, 0)};
    ModelLog log(&model);
    for (const QModelIndex &index : indexes) {
        QVERIFY(!model.data(index).isValid());
        QVERIFY(!model.setData(index, Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(model.flags(index), Qt::NoItemFlags);
        QVERIFY(!model.group(index));
    }
    QVERIFY(!model.data(larger.index(0, 9)).isValid());
    QCOMPARE(model.group(larger.index(0, 9))->name(), text("Team"));
    QCOMPARE(log.take(), QStringList());
}

void GroupListModelTest::servesCheckStatesOnlyWhenSelectable()
{
    Model model;
    const TableTester tester(&model);
    model.setSelectedGroupName(text("audio"), true);
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

void GroupListModelTest::labelsBothHeaders()
{
    const Model model;
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        QCOMPARE(model.headerData(0, orientation).toString(), text("Name"));
        QCOMPARE(model.headerData(1, orientation).toString(), text("GID"));
        QCOMPARE(model.headerData(2, orientation).toString(), text("System"));
        // The numbers of the base class.
        QCOMPARE(model.headerData(3, orientation), QVariant(4));
        QCOMPARE(model.headerData(-1, orientation), QVariant(0));
        QVERIFY(!model.headerData(0, orientation, Qt::ToolTipRole).isValid());
    }
}

void GroupListModelTest::locksTheUsersOwnGroup()
{
    Model model(zoe(), words("zoe"));
    const TableTester tester(&model);
    const int own = model.findGroup(zoe()).row();
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            QCOMPARE(model.index(row, column).flags() == Qt::NoItemFlags, row == own);
        }
    }
}

void GroupListModelTest::locksFirstOfEqualOwnGroups()
{
    Sandbox::setAccounts(usersFile, "zoe:x:1000:\nzoe:x:1002:\nzoe:x:1000:\n");
    Model model(zoe(), {});
    const TableTester tester(&model);
    QCOMPARE(model.index(0, 0).flags(), Qt::NoItemFlags);
    QVERIFY(model.index(1, 0).flags().testFlag(Qt::ItemIsEnabled));
    // Equal to the first in all parts.
    QCOMPARE(model.index(2, 0).flags(), Qt::NoItemFlags);
}

void GroupListModelTest::locksNoGroupOfAnotherName()
{
    // The primary group of yan is users.
    Model model(text("yan"), words("users"));
    const TableTester tester(&model);
    for (int row = 0; row < model.rowCount(); ++row) {
        QVERIFY(model.index(row, 0).flags().testFlag(Qt::ItemIsUserCheckable));
    }
}

void GroupListModelTest::locksNothingWithoutUser()
{
    Model model(QString(), {});
    const TableTester tester(&model);
    for (int row = 0; row < model.rowCount(); ++row) {
        QVERIFY(model.index(row, 0).flags().testFlag(Qt::ItemIsUserCheckable));
    }
}

void GroupListModelTest::flagsColumns()
{
    Model model;
    const TableTester tester(&model);
    const Qt::ItemFlags plain = Qt::ItemIsSelectable | Qt::ItemIsEnabled;

    QCOMPARE(model.index(0, 0).flags(), plain);
    QCOMPARE(model.index(0, 1).flags(), plain | Qt::ItemNeverHasChildren);
    QCOMPARE(model.index(0, 2).flags(), plain | Qt::ItemNeverHasChildren);
    model.setSelectable(true);
    QCOMPARE(model.index(0, 0).flags(), plain | Qt::ItemIsUserCheckable);
}

void GroupListModelTest::checksBoxes()
{
    Model model(zoe(), {});
    const TableTester tester(&model);
    ModelLog log(&model);

    QVERIFY(model.setData(model.index(1, 0), Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(log.take(), lines({"change 1,0-1,0 roles 10"}));
    QCOMPARE(model.selectedGroupNames(), words("audio"));
    QCOMPARE(rowText(model, 1), text("[x] audio | 29 | Yes"));
}

void GroupListModelTest::uncheckingTakesAnyOtherValue_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("Unchecked") << QVariant(0);
    QTest::newRow("PartiallyChecked") << QVariant(1);
    QTest::newRow("true") << QVariant(true);
    QTest::newRow("invalid") << QVariant();
}

void GroupListModelTest::uncheckingTakesAnyOtherValue()
{
    QFETCH(QVariant, value);

    Model model(zoe(), words("audio"));
    const TableTester tester(&model);
    ModelLog log(&model);
    QVERIFY(model.setData(model.index(1, 0), value, Qt::CheckStateRole));
    QCOMPARE(log.take(), lines({"change 1,0-1,0 roles 10"}));
    QCOMPARE(model.selectedGroupNames(), QStringList());
}

void GroupListModelTest::refusesOtherData_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");

    QTest::newRow("name") << 0 << int(Qt::EditRole);
    QTest::newRow("check of GID") << 1 << int(Qt::CheckStateRole);
    QTest::newRow("check of system") << 2 << int(Qt::CheckStateRole);
}

void GroupListModelTest::refusesOtherData()
{
    QFETCH(int, column);
    QFETCH(int, role);

    Model model(zoe(), {});
    const TableTester tester(&model);
    ModelLog log(&model);
    QVERIFY(!model.setData(model.index(0, column), Qt::Checked, role));
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(model.selectedGroupNames(), QStringList());
}

void GroupListModelTest::checksLockedAndBoxlessRows()
{
    Model model(zoe(), {});
    const TableTester tester(&model);
    QVERIFY(model.setData(model.findGroup(zoe()), Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(model.selectedGroupNames(), words("zoe"));

    model.setSelectable(false);
    QVERIFY(model.setData(model.findGroup(text("audio")), Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(model.selectedGroupNames(), words("zoe audio"));
}

void GroupListModelTest::keepsCheckedRowInViewUntilFiltered()
{
    Model model(zoe(), words("audio"));
    const TableTester tester(&model);
    model.setFilter(Model::Selected);
    QVERIFY(model.setData(model.index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
    QCOMPARE(rowTexts(model), lines({"[ ] audio | 29 | Yes"}));
    model.applyFilter();
    QVERIFY(model.isEmpty());
}

void GroupListModelTest::findsGroupOfRow()
{
    Model model;
    const TableTester tester(&model);
    for (int column = 0; column < model.columnCount(); ++column) {
        const GroupInfo *group = model.group(model.index(0, column));
        QVERIFY(group);
        QCOMPARE(group->name(), text("Team"));
        QCOMPARE(group->users(), words("yan zoe"));
    }
}

void GroupListModelTest::findsGroupByName()
{
    Model model;
    const TableTester tester(&model);

    QCOMPARE(model.findGroup(text("users")), model.index(2, 0));
    QVERIFY(!model.findGroup(text("team")).isValid());
    QVERIFY(!model.findGroup(QString()).isValid());
    model.setFilter(Model::Ordinary);
    QVERIFY(!model.findGroup(text("users")).isValid());
}

void GroupListModelTest::putsOwnGroupFirstAmongSelected_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QStringList>("selected");
    QTest::addColumn<QStringList>("returned");

    QTest::newRow("own group checked") << zoe() << words("video zoe audio") << words("zoe audio video");
    QTest::newRow("own group not checked") << zoe() << words("video audio") << words("audio video");
    QTest::newRow("own group first anyway") << text("Team") << words("video Team") << words("Team video");
    QTest::newRow("no own group") << text("yan") << words("video zoe audio") << words("audio video zoe");
    QTest::newRow("no user") << QString() << words("video zoe audio") << words("audio video zoe");
}

void GroupListModelTest::putsOwnGroupFirstAmongSelected()
{
    QFETCH(QString, user);
    QFETCH(QStringList, selected);
    QFETCH(QStringList, returned);

    Model model(user, selected);
    const TableTester tester(&model);
    QCOMPARE(model.selectedGroupNames(), returned);
    model.setFilter(Model::Unselected);
    QCOMPARE(model.selectedGroupNames(), returned);
}

void GroupListModelTest::selectsNames()
{
    Model model(zoe(), words("audio"));
    const TableTester tester(&model);
    ModelLog log(&model);

    model.setSelectedGroupNames(words("users Team"));
    QCOMPARE(log.take(), lines({"reset"}));
    QCOMPARE(model.selectedGroupNames(), words("Team users"));
    model.setSelectedGroupNames(words("users Team"));
    QCOMPARE(log.take(), lines({"reset"}));
    model.setSelectedGroupNames({});
    QCOMPARE(model.selectedGroupNames(), QStringList());
}

void GroupListModelTest::selectsOneName()
{
    Model model(zoe(), {});
    const TableTester tester(&model);
    ModelLog log(&model);

    model.setSelectedGroupName(text("audio"), true);
    model.setSelectedGroupName(text("audio"), true);
    QCOMPARE(log.take(), lines({"reset"}));
    QCOMPARE(model.selectedGroupNames(), words("audio"));

    model.setSelectedGroupName(text("users"), false);
    QCOMPARE(log.take(), QStringList());
    model.setSelectedGroupName(text("audio"), false);
    QCOMPARE(log.take(), lines({"reset"}));
    QCOMPARE(model.selectedGroupNames(), QStringList());
}

void GroupListModelTest::leavesUnknownSelectedNamesOut()
{
    Model model(zoe(), {QString(), text("ghost"), text("audio")});
    const TableTester tester(&model);
    QCOMPARE(model.selectedGroupNames(), words("audio"));

    Sandbox::write(groupPath(), QByteArray(groupsFile) + "ghost:x:1005:\n");
    model.reload();
    QCOMPARE(model.selectedGroupNames(), words("audio ghost"));
}

void GroupListModelTest::removesRows_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("removed");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QStringList>("notified");

    const QString all = text("Team video zoe");
    const QStringList nothing;
    const int most = std::numeric_limits<int>::max();
    QTest::newRow("first two") << 0 << 2 << true << text("zoe") << lines({"remove 0-1"});
    QTest::newRow("last two") << 1 << 2 << true << text("Team") << lines({"remove 1-2"});
    QTest::newRow("all") << 0 << 3 << true << QString() << lines({"remove 0-2"});
    QTest::newRow("too many") << 2 << 2 << false << all << nothing;
    QTest::newRow("before the start") << -1 << 1 << false << all << nothing;
    QTest::newRow("beyond all numbers") << 1 << most << false << all << nothing;
}

void GroupListModelTest::removesRows()
{
    QFETCH(int, row);
    QFETCH(int, count);
    QFETCH(bool, removed);
    QFETCH(QString, left);
    QFETCH(QStringList, notified);

    Model model;
    model.setFilter(Model::Ordinary);
    const TableTester tester(&model);
    ModelLog log(&model);

    QCOMPARE(model.removeRows(row, count), removed);
    QCOMPARE(log.take(), notified);
    QCOMPARE(shownNames(model), left);

    model.applyFilter();
    QCOMPARE(shownNames(model), left);
    model.setFilter(Model::System);
    QCOMPARE(shownNames(model), text("audio users"));
}

void GroupListModelTest::removesAllGroupsOfThatName()
{
    Sandbox::setAccounts(usersFile, "a:x:1:\na:x:1000:\nb:x:1001:\nb:x:1002:\nb:x:2:\n");
    Model model;
    const TableTester tester(&model);
    model.setFilter(Model::Ordinary);

    QVERIFY(model.removeRows(0, 2));
    QCOMPARE(rowTexts(model), lines({"b | 1002 | No"}));
    model.setFilter(Model::All);
    QCOMPARE(model.rowCount(), 0);
}

void GroupListModelTest::keepsRemovedNamesSelected()
{
    Model model(zoe(), words("Team"));
    const TableTester tester(&model);
    QVERIFY(model.removeRows(0, 1));
    QCOMPARE(model.selectedGroupNames(), QStringList());
    model.reload();
    QCOMPARE(model.selectedGroupNames(), words("Team"));
}

void GroupListModelTest::removesNothingWithNotification_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("notified");

    QTest::newRow("none at the start") << 0 << 0 << lines({"remove 0--1"});
    QTest::newRow("none at the end") << 5 << 0 << lines({"remove 5-4"});
    QTest::newRow("less than none") << 2 << -2 << lines({"remove 2--1"});
}

void GroupListModelTest::removesNothingWithNotification()
{
    QFETCH(int, row);
    QFETCH(int, count);
    QFETCH(QStringList, notified);

    // Without a tester: item models forbid such a removal.
    Model model;
    ModelLog log(&model);
    QVERIFY(model.removeRows(row, count));
    QCOMPARE(log.take(), notified);
    QCOMPARE(model.rowCount(), 5);
}

void GroupListModelTest::showsNewGroup()
{
    Model model(zoe(), {});
    const TableTester tester(&model);
    ModelLog log(&model);

    const QModelIndex index = model.setNewGroupName(text("staff2"));
    QCOMPARE(index, model.index(5, 0));
    QCOMPARE(log.take(), lines({"insert 5-5", "change 5,0-5,0 roles 0"}));
    QCOMPARE(rowText(model, 5), text("[ ] staff2 | 0 | Yes"));
    QVERIFY(model.group(index)->isEmpty());

    QCOMPARE(model.setNewGroupName(text("staff3")), index);
    QCOMPARE(log.take(), lines({"change 5,0-5,0 roles 0"}));
    QCOMPARE(rowText(model, 5), text("[ ] staff3 | 0 | Yes"));
    QCOMPARE(model.rowCount(), 6);
}

void GroupListModelTest::showsNewGroupInEmptyModel()
{
    Model model;
    const TableTester tester(&model);
    model.setFilter(Model::Selected);
    const QModelIndex index = model.setNewGroupName(QString());
    QCOMPARE(index, model.index(0, 0));
    QCOMPARE(rowTexts(model), lines({" | 0 | Yes"}));
}

void GroupListModelTest::losesNewGroupWhenFiltered()
{
    Model model;
    const TableTester tester(&model);
    model.setNewGroupName(text("staff2"));
    model.setFilter(Model::Ordinary);
    QCOMPARE(shownNames(model), text("Team video zoe"));
    model.setNewGroupName(text("staff2"));
    QCOMPARE(shownNames(model), text("Team video zoe staff2"));
    model.reload();
    QCOMPARE(shownNames(model), text("Team video zoe"));
}

void GroupListModelTest::checksNewGroup()
{
    Model model(zoe(), {});
    const TableTester tester(&model);
    QVERIFY(model.setData(model.setNewGroupName(text("staff2")), Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(rowText(model, 5), text("[x] staff2 | 0 | Yes"));
    QCOMPARE(model.selectedGroupNames(), QStringList());
}

void GroupListModelTest::neverLocksNewGroup()
{
    // There is no group yan, so that the record of the own group is as empty as the new one.
    Model model(text("yan"), {});
    const TableTester tester(&model);
    const QModelIndex index = model.setNewGroupName(text("yan"));
    QCOMPARE(index.flags(), Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
}

void GroupListModelTest::reloadsAll()
{
    Model model(zoe(), words("audio"));
    const TableTester tester(&model);
    model.setFilter(Model::Selected);
    Sandbox::write(groupPath(), "audio:x:1029:\n");

    ModelLog log(&model);
    model.reload();
    QCOMPARE(log.take(), lines({"reset"}));
    QCOMPARE(rowTexts(model), lines({"[x] audio | 1029 | No"}));
    QCOMPARE(model.filter(), Model::Selected);
}

void GroupListModelTest::looksForOwnGroupOnlyWhenReloaded()
{
    Model model(zoe(), {});
    const TableTester tester(&model);
    const auto isLocked = [&model] { return model.findGroup(zoe()).flags() == Qt::NoItemFlags; };
    QVERIFY(isLocked());

    // No longer equal to the record found at the beginning.
    Sandbox::write(groupPath(), "zoe:x:1007:yan\n");
    model.reloadGroup(zoe());
    QVERIFY(!isLocked());
    model.applyFilter();
    QVERIFY(!isLocked());
    model.reload();
    QVERIFY(isLocked());

    Sandbox::write(groupPath(), "Team:x:1001:\n");
    model.reload();
    Sandbox::write(groupPath(), "zoe:x:1007:yan\n");
    model.setSelectedGroupNames(words("Team zoe"));
    QCOMPARE(model.selectedGroupNames(), words("Team"));
}

void GroupListModelTest::reloadsOneGroupQuietly()
{
    Model model;
    const TableTester tester(&model);
    ModelLog log(&model);
    Sandbox::write(groupPath(), "Team:x:500:zoe\nvideo:x:3000:\n");

    model.reloadGroup(text("Team"));
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(rowText(model, 0), text("Team | 500 | Yes"));
    QCOMPARE(rowText(model, 3), text("video | 1044 | No"));
    QCOMPARE(model.group(model.index(0, 0))->users(), words("zoe"));

    // The full list has it, too.
    model.setFilter(Model::Ordinary);
    QCOMPARE(shownNames(model), text("video zoe"));
    model.reloadGroup(text("ghost"));
    QCOMPARE(shownNames(model), text("video zoe"));
}

void GroupListModelTest::reloadsGroupThatIsGone()
{
    Model model;
    const TableTester tester(&model);
    Sandbox::write(groupPath(), "");

    MessageRecorder recorder;
    model.reloadGroup(text("Team"));
    // Once for each of the two lists.
    QCOMPARE(recorder.takeTexts(), QStringList({groupNotFound(text("Team")), groupNotFound(text("Team"))}));
    QCOMPARE(rowText(model, 0), text("Team | 0 | Yes"));
}

void GroupListModelTest::warnsWhenNewGroupIsReloaded()
{
    Model model;
    const TableTester tester(&model);
    MessageRecorder recorder;
    model.reloadGroup(QString());
    QCOMPARE(recorder.takeTexts(), QStringList());

    model.setNewGroupName(text("staff2"));
    model.reloadGroup(QString());
    QCOMPARE(recorder.takeTexts(), QStringList(groupNotFound(QString())));
    QCOMPARE(rowText(model, 5), text("staff2 | 0 | Yes"));
}

void GroupListModelTest::handlesTenThousandGroups()
{
    Sandbox::setAccounts(usersFile, manyGroups(10000));
    Model model(text("group42"), words("group9999 group0 group42"));
    const TableTester tester(&model);

    QCOMPARE(model.rowCount(), 10000);
    QCOMPARE(model.selectedGroupNames(), words("group42 group0 group9999"));
    model.setFilter(Model::Selected);
    QCOMPARE(shownNames(model), text("group0 group42 group9999"));
    model.setFilter(Model::Unselected);
    QCOMPARE(model.rowCount(), 9997);
}

QTEST_MAIN(GroupListModelTest)

#include "grouplistmodeltest.moc"
