/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "bothlists.h"

/** The check boxes and selected names of UserListModel and GroupListModel. */
class ListSelectionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();

    void checksBoxes();
    void uncheckingTakesAnyOtherValue_data();
    void uncheckingTakesAnyOtherValue();
    void refusesOtherData_data();
    void refusesOtherData();
    void checksLockedAndBoxlessRows();
    void keepsCheckedRowInViewUntilFiltered();

    void selectsNames();
    void selectsOneName();
    void selectsAllTwins();
    void leavesUnknownSelectedNamesOut();
    void togglesCheckBoxes();
};

void ListSelectionTest::initTestCase_data()
{
    addBothKinds();
}

void ListSelectionTest::init()
{
    setListedAccounts();
}

void ListSelectionTest::checksBoxes()
{
    withBoxes({}, [](auto kind, auto &model) {
        using Kind = decltype(kind);
        ModelLog log(&model);
        QVERIFY(model.setData(model.index(1, 0), Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(log.take(), lines({"change 1,0-1,0 roles 10"}));
        QCOMPARE(Kind::selectedNames(model), words("adam"));
        QCOMPARE(rowText(model, 1), text("[x] adam | 1000 | No"));

        // Checking a checked row still notifies the views.
        QVERIFY(model.setData(model.index(1, 0), text("2"), Qt::CheckStateRole));
        QCOMPARE(log.take(), lines({"change 1,0-1,0 roles 10"}));
        QCOMPARE(Kind::selectedNames(model), words("adam"));
    });
}

void ListSelectionTest::uncheckingTakesAnyOtherValue_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("Unchecked") << QVariant(0);
    QTest::newRow("PartiallyChecked") << QVariant(1);
    QTest::newRow("3") << QVariant(3);
    QTest::newRow("true") << QVariant(true);
    QTest::newRow("text") << QVariant(text("x"));
    QTest::newRow("invalid") << QVariant();
}

void ListSelectionTest::uncheckingTakesAnyOtherValue()
{
    withBoxes(words("adam"), [](auto kind, auto &model) {
        QFETCH(QVariant, value);

        ModelLog log(&model);
        QVERIFY(model.setData(model.index(1, 0), value, Qt::CheckStateRole));
        QCOMPARE(log.take(), lines({"change 1,0-1,0 roles 10"}));
        QCOMPARE(decltype(kind)::selectedNames(model), QStringList());
    });
}

void ListSelectionTest::refusesOtherData_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");

    QTest::newRow("name") << 0 << int(Qt::EditRole);
    QTest::newRow("display") << 0 << int(Qt::DisplayRole);
    QTest::newRow("check of id") << 1 << int(Qt::CheckStateRole);
    QTest::newRow("check of system") << 2 << int(Qt::CheckStateRole);
}

void ListSelectionTest::refusesOtherData()
{
    withBoxes({}, [](auto kind, auto &model) {
        QFETCH(int, column);
        QFETCH(int, role);

        ModelLog log(&model);
        QVERIFY(!model.setData(model.index(0, column), Qt::Checked, role));
        QCOMPARE(log.take(), QStringList());
        QCOMPARE(decltype(kind)::selectedNames(model), QStringList());
    });
}

void ListSelectionTest::checksLockedAndBoxlessRows()
{
    withBoxes({}, [](auto kind, auto &model) {
        using Kind = decltype(kind);
        const QModelIndex locked = Kind::find(model, text("Zed"));
        QCOMPARE(locked.flags(), Qt::NoItemFlags);
        QVERIFY(model.setData(locked, Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(Kind::selectedNames(model), words("Zed"));

        model.setSelectable(false);
        QVERIFY(model.setData(Kind::find(model, text("adam")), Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(Kind::selectedNames(model), words("Zed adam"));
    });
}

void ListSelectionTest::keepsCheckedRowInViewUntilFiltered()
{
    withBoxes(words("adam"), [](auto /*kind*/, auto &model) {
        model.setFilter(model.Selected);
        QVERIFY(model.setData(model.index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(rowTexts(model), lines({"[ ] adam | 1000 | No"}));
        model.applyFilter();
        QVERIFY(model.isEmpty());
    });
}

void ListSelectionTest::selectsNames()
{
    withBoxes(words("adam"), [](auto kind, auto &model) {
        using Kind = decltype(kind);
        ModelLog log(&model);
        Kind::setSelectedNames(model, words("nobody bob"));
        QCOMPARE(log.take(), lines({"reset"}));
        QCOMPARE(Kind::selectedNames(model), words("bob nobody"));
        Kind::setSelectedNames(model, words("nobody bob"));
        QCOMPARE(log.take(), lines({"reset"}));
        Kind::setSelectedNames(model, {});
        QCOMPARE(Kind::selectedNames(model), QStringList());
    });
}

void ListSelectionTest::selectsOneName()
{
    withBoxes({}, [](auto kind, auto &model) {
        using Kind = decltype(kind);
        ModelLog log(&model);
        Kind::setSelectedName(model, text("adam"), true);
        Kind::setSelectedName(model, text("adam"), true);
        QCOMPARE(log.take(), lines({"reset"}));
        QCOMPARE(Kind::selectedNames(model), words("adam"));

        Kind::setSelectedName(model, text("bob"), false);
        QCOMPARE(log.take(), QStringList());
        Kind::setSelectedName(model, text("adam"), false);
        Kind::setSelectedName(model, text("adam"), false);
        QCOMPARE(log.take(), lines({"reset"}));
        QCOMPARE(Kind::selectedNames(model), QStringList());
    });
}

void ListSelectionTest::selectsAllTwins()
{
    setUsersAndGroups({{"ormel-admin", 27}, {"twin", 1000}, {"twin", 1001}});
    withKind([](auto kind) {
        using Kind = decltype(kind);
        typename Kind::Model model;
        const TableTester tester(&model);
        Kind::setSelectedNames(model, {twin()});
        QCOMPARE(Kind::selectedNames(model), words("twin twin"));
    });
}

void ListSelectionTest::leavesUnknownSelectedNamesOut()
{
    withBoxes({QString(), text("ghost"), text("Zed")}, [](auto kind, auto &model) {
        using Kind = decltype(kind);
        QCOMPARE(Kind::selectedNames(model), words("Zed"));

        // Kept nevertheless: the account may be created later.
        setUsersAndGroups({{"ormel-admin", 27}, {"Zed", 1001}, {"ghost", 1005}});
        model.reload();
        QCOMPARE(Kind::selectedNames(model), words("Zed ghost"));
    });
}

void ListSelectionTest::togglesCheckBoxes()
{
    withList([](auto kind, auto &model) {
        using Kind = decltype(kind);
        Kind::setSelectedName(model, text("bob"), true);
        model.setSelectable(true);
        QCOMPARE(rowTexts(model), lines({"[ ] Zed | 1001 | No", "[ ] adam | 1000 | No", "[x] bob | 1002 | No"}));
        model.setFilter(model.Unselected);
        QCOMPARE(shownNames(model), text("Zed adam nobody ormel-admin"));
        Kind::setSelectedName(model, text("adam"), true);
        QCOMPARE(shownNames(model), text("Zed nobody ormel-admin"));
    });
}

QTEST_MAIN(ListSelectionTest)

#include "listselectiontest.moc"
