/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "bothlists.h"

#include <functional>
#include <limits>

namespace
{
void setTwoAccounts()
{
    setUsersAndGroups({{"ormel-admin", 27}, {"zoe", 1000}});
}

/** The texts of the rows of @p model at each change signal during @p work. */
QStringList rowsSeen(const QAbstractItemModel &model, const std::function<void()> &work)
{
    using Model = QAbstractItemModel;
    QStringList seen;
    const auto see = [&](const char *when) {
        return [&seen, &model, when] {
            seen.append(QString::fromLatin1(when) + rowTexts(model).join(QStringLiteral(", ")));
        };
    };
    const QObject views;
    QObject::connect(&model, &Model::modelAboutToBeReset, &views, see("about to reset: "));
    QObject::connect(&model, &Model::modelReset, &views, see("reset: "));
    QObject::connect(&model, &Model::rowsInserted, &views, see("inserted: "));
    QObject::connect(&model, &Model::dataChanged, &views, see("changed: "));
    work();
    return seen;
}
}

/** How the rows of UserListModel and GroupListModel change, and when views are notified. */
class ListChangesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();

    void removesRows_data();
    void removesRows();
    void removesAllOfThatName();
    void keepsRemovedNamesSelected();
    void removesNothingWithNotification_data();
    void removesNothingWithNotification();
    void handsOnTheParentOfRemovedRows();

    void showsNewRow();
    void showsNewRowInEmptyModel();
    void losesNewRowWhenFiltered();
    void checksNewRow();

    void reloadsAll();
    void reloadsOneQuietly();
    void reloadsFirstOfTwins();

    void storesSelectableWithinReset();
    void filtersWithinReset();
    void checksBeforeNotification();
    void namesNewRowAfterInsertion();
};

void ListChangesTest::initTestCase_data()
{
    addBothKinds();
}

void ListChangesTest::init()
{
    setListedAccounts();
}

void ListChangesTest::removesRows_data()
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

void ListChangesTest::removesRows()
{
    withList([](auto /*kind*/, auto &model) {
        QFETCH(int, row);
        QFETCH(int, count);
        QFETCH(QString, left);

        ModelLog log(&model);
        QTEST(model.removeRows(row, count), "removed");
        QTEST(log.take(), "notified");
        QCOMPARE(shownNames(model), left);

        // Only these are also removed from the hidden records.
        model.applyFilter();
        QCOMPARE(shownNames(model), left);
        model.setFilter(model.System);
        QCOMPARE(shownNames(model), text("nobody ormel-admin"));
    });
}

void ListChangesTest::removesAllOfThatName()
{
    setUsersAndGroups({{"ormel-admin", 27}, {"adam", 1}, {"adam", 1000}, {"bob", 1001}, {"bob", 1002}, {"bob", 2}});
    withList([](auto /*kind*/, auto &model) {
        QCOMPARE(rowTexts(model), lines({"adam | 1000 | No", "bob | 1001 | No", "bob | 1002 | No"}));
        QVERIFY(model.removeRows(0, 2));
        QCOMPARE(rowTexts(model), lines({"bob | 1002 | No"}));
        model.setFilter(model.All);
        QCOMPARE(shownNames(model), text("ormel-admin"));
    });
}

void ListChangesTest::keepsRemovedNamesSelected()
{
    withBoxes(words("Zed"), [](auto kind, auto &model) {
        using Kind = decltype(kind);
        QVERIFY(model.removeRows(0, 1));
        QCOMPARE(Kind::selectedNames(model), QStringList());
        model.reload();
        QCOMPARE(Kind::selectedNames(model), words("Zed"));
    });
}

void ListChangesTest::removesNothingWithNotification_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("notified");

    QTest::newRow("none at the start") << 0 << 0 << lines({"remove 0--1"});
    QTest::newRow("none at the end") << 3 << 0 << lines({"remove 3-2"});
    QTest::newRow("none before the start") << -1 << 0 << lines({"remove -1--2"});
    QTest::newRow("less than none") << 2 << -2 << lines({"remove 2--1"});
}

void ListChangesTest::removesNothingWithNotification()
{
    withKind([](auto kind) {
        QFETCH(int, row);
        QFETCH(int, count);

        // Without a tester, since item models forbid such a removal.
        typename decltype(kind)::Model model;
        model.setFilter(model.Ordinary);
        ModelLog log(&model);
        QVERIFY(model.removeRows(row, count));
        QTEST(log.take(), "notified");
        QCOMPARE(shownNames(model), text("Zed adam bob"));
    });
}

void ListChangesTest::handsOnTheParentOfRemovedRows()
{
    setTwoAccounts();
    withKind([](auto kind) {
        // Without a tester, since rows have no children.
        typename decltype(kind)::Model model;
        model.setFilter(model.All);
        ModelLog log(&model);
        QVERIFY(model.removeRows(0, 1, model.index(1, 0)));
        QCOMPARE(log.take(), lines({"remove 0-0 below 1"}));
        QCOMPARE(rowTexts(model), lines({"zoe | 1000 | No"}));
    });
}

void ListChangesTest::showsNewRow()
{
    withBoxes({}, [](auto kind, auto &model) {
        using Kind = decltype(kind);
        ModelLog log(&model);
        const QModelIndex index = Kind::setNewName(model, text("carol"));
        QCOMPARE(index, model.index(3, 0));
        QCOMPARE(log.take(), lines({"insert 3-3", "change 3,0-3,0 roles 0"}));
        QCOMPARE(rowText(model, 3), text("[ ] carol | 0 | Yes"));
        QVERIFY(Kind::record(model, index)->isEmpty());
        QCOMPARE(Kind::find(model, QString()), index);
        QCOMPARE(index.flags(), Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);

        QCOMPARE(Kind::setNewName(model, text("caroline")), index);
        QCOMPARE(log.take(), lines({"change 3,0-3,0 roles 0"}));
        QCOMPARE(rowText(model, 3), text("[ ] caroline | 0 | Yes"));
        QCOMPARE(model.rowCount(), 4);
    });
}

void ListChangesTest::showsNewRowInEmptyModel()
{
    withList([](auto kind, auto &model) {
        model.setFilter(model.Selected);
        const QModelIndex index = decltype(kind)::setNewName(model, QString());
        QCOMPARE(index, model.index(0, 0));
        QCOMPARE(rowTexts(model), lines({" | 0 | Yes"}));
        QVERIFY(!model.isEmpty());

        QVERIFY(model.removeRows(0, 1));
        QVERIFY(model.isEmpty());
    });
}

void ListChangesTest::losesNewRowWhenFiltered()
{
    withList([](auto kind, auto &model) {
        using Kind = decltype(kind);
        Kind::setNewName(model, text("carol"));
        model.setFilter(model.All);
        QCOMPARE(shownNames(model), text("Zed adam bob nobody ormel-admin"));
        Kind::setNewName(model, text("carol"));
        QCOMPARE(shownNames(model), text("Zed adam bob nobody ormel-admin carol"));
        model.setFilter(model.Ordinary);
        QCOMPARE(shownNames(model), text("Zed adam bob"));
        Kind::setNewName(model, text("dave"));
        QCOMPARE(shownNames(model), text("Zed adam bob dave"));
        model.reload();
        QCOMPARE(shownNames(model), text("Zed adam bob"));
    });
}

void ListChangesTest::checksNewRow()
{
    withBoxes({}, [](auto kind, auto &model) {
        using Kind = decltype(kind);
        QVERIFY(model.setData(Kind::setNewName(model, text("carol")), Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(rowText(model, 3), text("[x] carol | 0 | Yes"));
        QCOMPARE(Kind::selectedNames(model), QStringList());

        // The check mark belongs to the empty name, so the next placeholder row has it too.
        model.applyFilter();
        Kind::setNewName(model, text("dave"));
        QCOMPARE(rowText(model, 3), text("[x] dave | 0 | Yes"));
    });
}

void ListChangesTest::reloadsAll()
{
    withBoxes(words("adam"), [](auto /*kind*/, auto &model) {
        model.setFilter(model.All);
        setUsersAndGroups({{"ormel-admin", 27}, {"new", 1500}, {"adam", 999}});
        QCOMPARE(model.rowCount(), 5);

        ModelLog log(&model);
        model.reload();
        QCOMPARE(log.take(), lines({"reset"}));
        QCOMPARE(rowTexts(model), lines({"[x] adam | 999 | Yes", "[ ] new | 1500 | No", "[ ] ormel-admin | 27 | Yes"}));
        QCOMPARE(model.filter(), model.All);
        QVERIFY(model.isSelectable());

        model.setFilter(model.Selected);
        setUsersAndGroups({{"ormel-admin", 27}, {"adam", 1029}});
        log.take();
        model.reload();
        QCOMPARE(log.take(), lines({"reset"}));
        QCOMPARE(rowTexts(model), lines({"[x] adam | 1029 | No"}));
        QCOMPARE(model.filter(), model.Selected);
    });
}

void ListChangesTest::reloadsOneQuietly()
{
    withList([](auto kind, auto &model) {
        using Kind = decltype(kind);
        ModelLog log(&model);
        setUsersAndGroups({{"ormel-admin", 27}, {"adam", 500}, {"Zed", 2000}, {"bob", 2001}});
        Kind::reloadRecord(model, text("adam"));
        QCOMPARE(log.take(), QStringList());
        QCOMPARE(rowTexts(model), lines({"Zed | 1001 | No", "adam | 500 | Yes", "bob | 1002 | No"}));

        // The full list has it as well: the system account is filtered out now.
        model.applyFilter();
        QCOMPARE(rowTexts(model), lines({"Zed | 1001 | No", "bob | 1002 | No"}));

        Kind::setNewName(model, text("carol"));
        Kind::reloadRecord(model, text("ghost"));
        QCOMPARE(rowTexts(model), lines({"Zed | 1001 | No", "bob | 1002 | No", "carol | 0 | Yes"}));
    });
}

void ListChangesTest::reloadsFirstOfTwins()
{
    setUsersAndGroups({{"ormel-admin", 27}, {"twin", 1000}, {"twin", 1001}, {"twin", 1002}});
    withKind([](auto kind) {
        using Kind = decltype(kind);
        typename Kind::Model model;
        model.setFilter(model.Ordinary);
        const TableTester tester(&model);
        setUsersAndGroups({{"ormel-admin", 27}, {"twin", 2000}, {"twin", 2001}, {"twin", 2002}});

        const QStringList reloaded = lines({"twin | 2000 | No", "twin | 1001 | No", "twin | 1002 | No"});
        Kind::reloadRecord(model, twin());
        QCOMPARE(rowTexts(model), reloaded);
        // The full list as well.
        model.applyFilter();
        QCOMPARE(rowTexts(model), reloaded);
    });
}

void ListChangesTest::storesSelectableWithinReset()
{
    setTwoAccounts();
    withKind([](auto kind) {
        typename decltype(kind)::Model model;
        model.setFilter(model.Ordinary);
        QCOMPARE(rowsSeen(model, [&] { model.setSelectable(true); }),
                 lines({"about to reset: zoe | 1000 | No", "reset: [ ] zoe | 1000 | No"}));
    });
}

void ListChangesTest::filtersWithinReset()
{
    setTwoAccounts();
    withKind([](auto kind) {
        typename decltype(kind)::Model model;
        model.setFilter(model.Ordinary);
        QCOMPARE(rowsSeen(model, [&] { model.setFilter(model.System); }),
                 lines({"about to reset: zoe | 1000 | No", "reset: ormel-admin | 27 | Yes"}));
    });
}

void ListChangesTest::checksBeforeNotification()
{
    setTwoAccounts();
    withKind([](auto kind) {
        typename decltype(kind)::Model model;
        model.setFilter(model.Ordinary);
        model.setSelectable(true);
        const auto check = [&] { model.setData(model.index(0, 0), Qt::Checked, Qt::CheckStateRole); };
        QCOMPARE(rowsSeen(model, check), lines({"changed: [x] zoe | 1000 | No"}));
    });
}

void ListChangesTest::namesNewRowAfterInsertion()
{
    setTwoAccounts();
    withKind([](auto kind) {
        using Kind = decltype(kind);
        typename Kind::Model model;
        model.setFilter(model.System);
        const auto name = [&model](const char *name) {
            return rowsSeen(model, [&] { Kind::setNewName(model, QString::fromLatin1(name)); });
        };
        QCOMPARE(
            name("one"),
            lines({"inserted: ormel-admin | 27 | Yes,  | 0 | Yes", "changed: ormel-admin | 27 | Yes, one | 0 | Yes"}));
        // The name of the removed row is still selected.
        model.setFilter(model.Ordinary);
        QCOMPARE(name("two"),
                 lines({"inserted: zoe | 1000 | No, one | 0 | Yes", "changed: zoe | 1000 | No, two | 0 | Yes"}));
    });
}

QTEST_MAIN(ListChangesTest)

#include "listchangestest.moc"
