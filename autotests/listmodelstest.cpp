/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "bothkinds.h"
#include "modellog.h"

#include <functional>

namespace
{
QString twin()
{
    return QStringLiteral("twin");
}

/** What the rows of @p model read each time that views are told of a change while @p work is done. */
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

/** What UserListModel and GroupListModel do alike. */
class ListModelsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();

    void countsWithoutLookingAtTheParent();
    void handsOnTheParentOfRemovedRows();

    void findsFirstOfTwins();
    void selectsAllTwins();
    void reloadsFirstOfTwins();

    void storesSelectableWithinReset();
    void filtersWithinReset();
    void checksBeforeNotification();
    void namesNewRowAfterInsertion();
};

void ListModelsTest::initTestCase_data()
{
    addBothKinds();
}

void ListModelsTest::init()
{
    setUsersAndGroups({{"ormel-admin", 27}, {"zoe", 1000}});
}

void ListModelsTest::countsWithoutLookingAtTheParent()
{
    withKind([](auto kind) {
        typename decltype(kind)::Model model;
        model.setFilter(model.All);
        const QModelIndex row = model.index(0, 0);
        QCOMPARE(model.rowCount(row), 2);
        QCOMPARE(model.columnCount(row), 3);
    });
}

void ListModelsTest::handsOnTheParentOfRemovedRows()
{
    withKind([](auto kind) {
        // Without a tester: no row has rows below it.
        typename decltype(kind)::Model model;
        model.setFilter(model.All);
        ModelLog log(&model);
        QVERIFY(model.removeRows(0, 1, model.index(1, 0)));
        QCOMPARE(log.take(), lines({"remove 0-0 below 1"}));
        QCOMPARE(rowTexts(model), lines({"zoe | 1000 | No"}));
    });
}

void ListModelsTest::findsFirstOfTwins()
{
    setUsersAndGroups({{"ormel-admin", 27}, {"twin", 1000}, {"twin", 1001}});
    withKind([](auto kind) {
        using Kind = decltype(kind);
        typename Kind::Model model;
        model.setFilter(model.All);
        const TableTester tester(&model);
        QCOMPARE(Kind::find(model, twin()), model.index(1, 0));
        QCOMPARE(Kind::id(*Kind::record(model, model.index(1, 0))), 1000u);
    });
}

void ListModelsTest::selectsAllTwins()
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

void ListModelsTest::reloadsFirstOfTwins()
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
        // The list of all, too.
        model.applyFilter();
        QCOMPARE(rowTexts(model), reloaded);
    });
}

void ListModelsTest::storesSelectableWithinReset()
{
    withKind([](auto kind) {
        typename decltype(kind)::Model model;
        model.setFilter(model.Ordinary);
        QCOMPARE(rowsSeen(model, [&] { model.setSelectable(true); }),
                 lines({"about to reset: zoe | 1000 | No", "reset: [ ] zoe | 1000 | No"}));
    });
}

void ListModelsTest::filtersWithinReset()
{
    withKind([](auto kind) {
        typename decltype(kind)::Model model;
        model.setFilter(model.Ordinary);
        QCOMPARE(rowsSeen(model, [&] { model.setFilter(model.System); }),
                 lines({"about to reset: zoe | 1000 | No", "reset: ormel-admin | 27 | Yes"}));
    });
}

void ListModelsTest::checksBeforeNotification()
{
    withKind([](auto kind) {
        typename decltype(kind)::Model model;
        model.setFilter(model.Ordinary);
        model.setSelectable(true);
        const auto check = [&] { model.setData(model.index(0, 0), Qt::Checked, Qt::CheckStateRole); };
        QCOMPARE(rowsSeen(model, check), lines({"changed: [x] zoe | 1000 | No"}));
    });
}

void ListModelsTest::namesNewRowAfterInsertion()
{
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
        // The name of the row that is gone is still there.
        model.setFilter(model.Ordinary);
        QCOMPARE(name("two"),
                 lines({"inserted: zoe | 1000 | No, one | 0 | Yes", "changed: zoe | 1000 | No, two | 0 | Yes"}));
    });
}

QTEST_MAIN(ListModelsTest)

#include "listmodelstest.moc"
