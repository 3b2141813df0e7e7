/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "dialogparts.h"
#include "mainwindow.h"
#include "patience.h"
#include "recordmodel.h"
#include "recordview.h"
#include "shadowtools.h"
#include "texts.h"
#include "windowfixture.h"

#include <QTest>

namespace
{
/** Runs one of the tools that change accounts. */
QByteArray run(const QByteArrayList &command)
{
    Plan plan;
    plan.commands.append(command);
    return ShadowTools::run(plan);
}
}

/** The window while the system's tools change the accounts. */
class AccountToolsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void showsUserThatComesAndGoes();
    void showsNewMemberOfGroup();
};

void AccountToolsTest::init()
{
    prepareWindow();
    ShadowTools::setAccounts("root:x:0:0:root:/root:/bin/bash\n"
                             "ada:x:1000:50:Ada:/home/ada:/bin/sh\n"
                             "bob:x:1001:50:Bob:/home/bob:/bin/sh\n",
                             "root:x:0:\normel-admin:x:27:ada\nstaff:x:50:\n");
}

void AccountToolsTest::showsUserThatComesAndGoes()
{
    MainWindow window;
    QVERIFY(open(window));
    RecordView &users = *part<RecordView>(window, "userListView");
    users.setCurrentName(text("bob"));
    const auto place = [&users] { return users.recordModel()->find(text("carl")); };

    QCOMPARE(run({"useradd", "--gid", "staff", "carl"}), QByteArray());
    QVERIFY(QTest::qWaitFor([&place] { return place().isValid(); }, patience));
    QCOMPARE(users.model()->rowCount(), 4);
    QVERIFY(place().data(RecordModel::NewsRole).toBool());
    QCOMPARE(users.currentName(), text("bob"));
    QCOMPARE(users.selectionModel()->selectedRows().size(), 1);
    QVERIFY(users.selectionModel()->isRowSelected(users.recordModel()->find(text("bob")).row(), QModelIndex()));

    QCOMPARE(run({"userdel", "carl"}), QByteArray());
    QVERIFY(QTest::qWaitFor([&place] { return !place().isValid(); }, patience));
    QCOMPARE(users.model()->rowCount(), 3);
    QCOMPARE(users.currentName(), text("bob"));
}

void AccountToolsTest::showsNewMemberOfGroup()
{
    MainWindow window;
    QVERIFY(open(window));
    const RecordModel &groups = *part<RecordView>(window, "groupListView")->recordModel();
    const auto shows = [&groups](int members) {
        const QModelIndex group = groups.find(text("ormel-admin"));
        return group.siblingAtColumn(2).data(RecordModel::ValueRole).toInt() == members;
    };
    QVERIFY(shows(1));
    QCOMPARE(run({"gpasswd", "--add", "bob", "ormel-admin"}), QByteArray());
    QVERIFY(QTest::qWaitFor([&shows] { return shows(2); }, patience));
    QCOMPARE(run({"gpasswd", "--delete", "ada", "ormel-admin"}), QByteArray());
    QVERIFY(QTest::qWaitFor([&shows] { return shows(1); }, patience));
}

QTEST_MAIN(AccountToolsTest)

#include "accounttoolstest.moc"
