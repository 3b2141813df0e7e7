/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountfixtures.h"
#include "dialogkinds.h"
#include "sandbox.h"
#include "texts.h"

#include <QTest>

namespace
{
const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                         "a-system-account-of-a-very-long-name:x:900:50::/:/bin/false\n"
                         "bob:x:1002:50::/home/bob:/bin/sh\n"
                         "adam:x:1000:1000::/home/adam:/bin/sh\n"
                         "Zed:x:1001:1001::/home/zed:/bin/sh\n"
                         "a.b:x:1003:1000::/:/bin/sh\n";

const char groupsFile[] = "root:x:0:\n"
                          "ormel-admin:x:27:bob\n"
                          "staff:x:50:adam\n"
                          "adam:x:1000:\n"
                          "zed:x:1001:\n";

GroupInfo staff()
{
    return GroupInfo::getGroup(QStringLiteral("staff"));
}

using Dialog = DialogOf<PickedUsers>;
}

class UserSelectDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void offersFilters();
    void startsWithOrdinaryUsers();
    void filterNarrowsUsers_data();
    void filterNarrowsUsers();
    void singleSelectionTakesCurrentUserAlone();
    void handlesTenThousandUsers();
};

void UserSelectDialogTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
}

void UserSelectDialogTest::offersFilters()
{
    const Dialog dialog;
    QCOMPARE(comboBoxEntries(*dialog.comboBox),
             lines({"All int 0",
                    "Ordinary int 1",
                    "System int 2",
                    "Administrators int 3",
                    "Selected int 4",
                    "Unselected int 5"}));
    QCOMPARE(dialog.comboBox->currentText(), text("Ordinary"));
    QVERIFY(!dialog.comboBox->isEditable());
}

void UserSelectDialogTest::startsWithOrdinaryUsers()
{
    // A sorting tree view starts in descending order of the first column.
    const Dialog all;
    QCOMPARE(rowTexts(*all.view->model()),
             lines({"[ ] bob | 1002 | No", "[ ] adam | 1000 | No", "[ ] a.b | 1003 | No", "[ ] Zed | 1001 | No"}));
    QCOMPARE(all.selectedUserNames(), QStringList());

    const Dialog members(staff(), words("adam root"));
    QCOMPARE(rowTexts(*members.view->model()),
             lines({"[ ] bob | 1002 | No", "[x] adam | 1000 | No", "[ ] a.b | 1003 | No", "[ ] Zed | 1001 | No"}));
    QCOMPARE(members.selectedUserNames(), words("adam root"));
    QCOMPARE(viewIndex(*members.view, text("bob")).flags(), Qt::NoItemFlags);
}

void UserSelectDialogTest::filterNarrowsUsers_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<int>("filter");
    QTest::addColumn<QString>("shown");

    const QString longName = text("a-system-account-of-a-very-long-name");
    QTest::newRow("All") << text("All") << 0 << QStringLiteral("root bob adam a.b %1 Zed").arg(longName);
    QTest::newRow("System") << text("System") << 2 << QStringLiteral("root %1").arg(longName);
    QTest::newRow("Administrators") << text("Administrators") << 3 << text("bob");
    QTest::newRow("Selected") << text("Selected") << 4 << text("root adam");
    QTest::newRow("Unselected") << text("Unselected") << 5 << QStringLiteral("bob a.b %1 Zed").arg(longName);
}

void UserSelectDialogTest::filterNarrowsUsers()
{
    QFETCH(QString, entry);
    QFETCH(int, filter);
    QFETCH(QString, shown);

    const Dialog dialog(staff(), words("adam root"));
    dialog.comboBox->setCurrentText(entry);
    QCOMPARE(dialog.model->filter(), filter);
    QCOMPARE(dialog.shownNames(), shown);

    dialog.comboBox->setCurrentText(text("Ordinary"));
    QCOMPARE(dialog.shownNames(), text("bob adam a.b Zed"));
}

void UserSelectDialogTest::singleSelectionTakesCurrentUserAlone()
{
    Dialog dialog(staff(), words("Zed"));
    dialog.setSingleSelectionMode(true);
    QCOMPARE(dialog.selectedUserNames(), QStringList(QString()));

    QVERIFY(open(dialog));
    clickText(*dialog.view, text("adam"));
    QCOMPARE(dialog.selectedUserNames(), words("adam"));
}

void UserSelectDialogTest::handlesTenThousandUsers()
{
    Sandbox::setAccounts(manyUsers(10000), groupsFile);
    Dialog dialog(GroupInfo(), words("user4242"));
    QVERIFY(open(dialog));
    QCOMPARE(dialog.view->model()->rowCount(), 10000);
    QTest::keyClicks(dialog.lineEdit, text("user77"));
    QCOMPARE(dialog.view->model()->rowCount(), 111);
    clickCheckBox(*dialog.view, text("user7777"));
    QCOMPARE(dialog.selectedUserNames(), words("user4242 user7777"));
    dialog.comboBox->setCurrentText(text("Selected"));
    QCOMPARE(dialog.shownNames(), text("user7777 user4242"));
}

QTEST_MAIN(UserSelectDialogTest)

#include "userselectdialogtest.moc"
