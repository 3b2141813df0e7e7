/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "messagerecorder.h"
#include "modellog.h"
#include "sandbox.h"
#include "texts.h"

#include <GroupListModel>

#include <QTest>

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

    void listsAllGroupsByName();
    void listsGroupsForUser();

    void filtersGroups_data();
    void filtersGroups();

    void locksTheUsersOwnGroup();
    void locksFirstOfEqualOwnGroups();
    void locksNoGroupOfAnotherName();
    void locksNoOtherGroupOfSameGid();
    void locksNothingWithoutUser();
    void neverLocksNewGroup();

    void givesMembersOfRow();
    void putsOwnGroupFirstAmongSelected_data();
    void putsOwnGroupFirstAmongSelected();
    void putsOwnGroupFirstWhenChecked();

    void looksForOwnGroupOnlyWhenReloaded();
    void reloadsMembers();
    void reloadsGroupThatIsGone();
    void warnsWhenNewGroupIsReloaded();
    void handlesTenThousandGroups();
};

void GroupListModelTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
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
    // Equal to the first one.
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

void GroupListModelTest::locksNoOtherGroupOfSameGid()
{
    Sandbox::setAccounts(usersFile, "zoe:x:1000:\nalias:x:1000:\n");
    Model model(zoe(), {});
    const TableTester tester(&model);
    QCOMPARE(model.findGroup(zoe()).flags(), Qt::NoItemFlags);
    QVERIFY(model.findGroup(text("alias")).flags().testFlag(Qt::ItemIsUserCheckable));
}

void GroupListModelTest::locksNothingWithoutUser()
{
    Model model(QString(), {});
    const TableTester tester(&model);
    for (int row = 0; row < model.rowCount(); ++row) {
        QVERIFY(model.index(row, 0).flags().testFlag(Qt::ItemIsUserCheckable));
    }
}

void GroupListModelTest::neverLocksNewGroup()
{
    // There is no group yan, so the record of the primary group is as empty as the new one.
    Model model(text("yan"), {});
    const TableTester tester(&model);
    const QModelIndex index = model.setNewGroupName(text("yan"));
    QCOMPARE(index.flags(), Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
}

void GroupListModelTest::givesMembersOfRow()
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

void GroupListModelTest::putsOwnGroupFirstWhenChecked()
{
    Model model(zoe(), words("audio"));
    const TableTester tester(&model);
    QCOMPARE(model.selectedGroupNames(), words("audio"));
    QVERIFY(model.setData(model.findGroup(zoe()), Qt::Checked, Qt::CheckStateRole));
    QCOMPARE(model.selectedGroupNames(), words("zoe audio"));
}

void GroupListModelTest::looksForOwnGroupOnlyWhenReloaded()
{
    Model model(zoe(), {});
    const TableTester tester(&model);
    const auto isLocked = [&model] { return model.findGroup(zoe()).flags() == Qt::NoItemFlags; };
    QVERIFY(isLocked());

    // No longer equal to the record that was found first.
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

void GroupListModelTest::reloadsMembers()
{
    Model model;
    const TableTester tester(&model);
    Sandbox::write(groupPath(), "Team:x:1001:zoe\n");
    model.reloadGroup(text("Team"));
    QCOMPARE(model.group(model.index(0, 0))->users(), words("zoe"));
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
