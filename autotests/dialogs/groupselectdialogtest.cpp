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
                         "bob:x:1000:1000::/home/bob:/bin/sh\n";

const char groupsFile[] = "root:x:0:\n"
                          "a-system-group-of-a-very-long-name:x:900:\n"
                          "bob:x:1002:\n"
                          "adam:x:1000:zed\n"
                          "Zed:x:1001:zed\n"
                          "a.b:x:1003:\n";

/** The user whose own group is among the groups. */
QString bob()
{
    return text("bob");
}

using Dialog = DialogOf<PickedGroups>;
}

class GroupSelectDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void offersFilters();
    void startsWithAllGroups();
    void filterNarrowsGroups_data();
    void filterNarrowsGroups();
    void singleSelectionLeavesCheckedGroupsAlone();
    void multipleSelectionTakesOwnGroupFirst();
    void handlesTenThousandGroups();
};

void GroupSelectDialogTest::init()
{
    Sandbox::setAccounts(usersFile, groupsFile);
}

void GroupSelectDialogTest::offersFilters()
{
    const Dialog dialog;
    QCOMPARE(comboBoxEntries(*dialog.comboBox),
             lines({"All int 0", "Ordinary int 1", "System int 2", "Selected int 3", "Unselected int 4"}));
    QCOMPARE(dialog.comboBox->currentText(), text("All"));
    QVERIFY(!dialog.comboBox->isEditable());
}

void GroupSelectDialogTest::startsWithAllGroups()
{
    // A sorting tree view starts in descending order of the first column.
    const Dialog all;
    QCOMPARE(rowTexts(*all.view->model()),
             lines({"[ ] root | 0 | Yes",
                    "[ ] bob | 1002 | No",
                    "[ ] adam | 1000 | No",
                    "[ ] a.b | 1003 | No",
                    "[ ] a-system-group-of-a-very-long-name | 900 | Yes",
                    "[ ] Zed | 1001 | No"}));
    QCOMPARE(all.selectedGroupNames(), QStringList());

    const Dialog groups(bob(), words("adam root"));
    QCOMPARE(rowText(*groups.view->model(), 2), text("[x] adam | 1000 | No"));
    QCOMPARE(groups.selectedGroupNames(), words("adam root"));
    QCOMPARE(viewIndex(*groups.view, text("bob")).flags(), Qt::NoItemFlags);
}

void GroupSelectDialogTest::filterNarrowsGroups_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<int>("filter");
    QTest::addColumn<QString>("shown");

    const QString longName = text("a-system-group-of-a-very-long-name");
    QTest::newRow("Ordinary") << text("Ordinary") << 1 << text("bob adam a.b Zed");
    QTest::newRow("System") << text("System") << 2 << QStringLiteral("root %1").arg(longName);
    QTest::newRow("Selected") << text("Selected") << 3 << text("root adam");
    QTest::newRow("Unselected") << text("Unselected") << 4 << QStringLiteral("bob a.b %1 Zed").arg(longName);
}

void GroupSelectDialogTest::filterNarrowsGroups()
{
    QFETCH(QString, entry);
    QFETCH(int, filter);
    QFETCH(QString, shown);

    const Dialog dialog(bob(), words("adam root"));
    const QString all = dialog.shownNames();
    dialog.comboBox->setCurrentText(entry);
    QCOMPARE(dialog.model->filter(), filter);
    QCOMPARE(dialog.shownNames(), shown);

    dialog.comboBox->setCurrentText(text("All"));
    QCOMPARE(dialog.shownNames(), all);
}

void GroupSelectDialogTest::singleSelectionLeavesCheckedGroupsAlone()
{
    Dialog none;
    none.setSingleSelectionMode(true);
    none.view->setCurrentIndex(viewIndex(*none.view, text("adam")));
    QCOMPARE(none.selectedGroupNames(), QStringList());

    Dialog some(bob(), words("root Zed bob"));
    some.setSingleSelectionMode(true);
    some.view->setCurrentIndex(viewIndex(*some.view, text("adam")));
    QCOMPARE(some.selectedGroupNames(), words("bob Zed root"));
}

void GroupSelectDialogTest::multipleSelectionTakesOwnGroupFirst()
{
    const Dialog dialog(bob(), words("root bob Zed"));
    QCOMPARE(dialog.selectedGroupName(), text("bob"));
    QCOMPARE(dialog.selectedGroupNames(), words("bob Zed root"));
}

void GroupSelectDialogTest::handlesTenThousandGroups()
{
    Sandbox::setAccounts(usersFile, manyGroups(10000));
    Dialog dialog(text("group99"), words("group4242 group99"));
    QVERIFY(open(dialog));
    QCOMPARE(dialog.view->model()->rowCount(), 10000);
    QTest::keyClicks(dialog.lineEdit, text("group77"));
    QCOMPARE(dialog.view->model()->rowCount(), 111);
    clickCheckBox(*dialog.view, text("group7777"));
    QCOMPARE(dialog.selectedGroupNames(), words("group99 group4242 group7777"));
    dialog.comboBox->setCurrentText(text("Selected"));
    QCOMPARE(dialog.shownNames(), text("group99 group7777 group4242"));
}

QTEST_MAIN(GroupSelectDialogTest)

#include "groupselectdialogtest.moc"
