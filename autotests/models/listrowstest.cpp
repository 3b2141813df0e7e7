/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "bothlists.h"
#include "icontheme.h"
#include "messagerecorder.h"

#include <QStandardItemModel>

/** The rows that UserListModel and GroupListModel show alike, and how a row is found. */
class ListRowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void init();

    void isPlainTableModel();
    void registersItsEnumerations();
    void countsWithoutLookingAtTheParent();
    void keepsFileOrderOfEqualNames();
    void isEmptyWithoutAccounts();

    void filterResetsOnce();
    void appliesFilterOnRequest();
    void isEmptyWhenTheFilterHidesAll();

    void givesTextsPerColumn();
    void givesNumbersForIds();
    void givesIcons();
    void givesNothingForOtherRoles();
    void givesNothingForForeignIndexes();
    void servesCheckStatesOnlyWhenSelectable();
    void labelsBothHeaders();
    void flagsColumns();

    void findsRecordOfRow();
    void findsRowByName();
    void findsFirstOfTwins();
};

void ListRowsTest::initTestCase_data()
{
    addBothKinds();
}

void ListRowsTest::init()
{
    setListedAccounts();
}

void ListRowsTest::isPlainTableModel()
{
    withKind([](auto kind) {
        using Kind = decltype(kind);
        const QMetaObject &meta = Kind::Model::staticMetaObject;
        QCOMPARE(meta.className(), Kind::className);
        QCOMPARE(meta.superClass(), &QAbstractTableModel::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    });
}

void ListRowsTest::registersItsEnumerations()
{
    withKind([](auto kind) {
        using Kind = decltype(kind);
        QCOMPARE(enumerationTexts(Kind::Model::staticMetaObject), words(Kind::enumerations));
    });
}

void ListRowsTest::countsWithoutLookingAtTheParent()
{
    withKind([](auto kind) {
        typename decltype(kind)::Model model;
        model.setFilter(model.All);
        const QModelIndex row = model.index(0, 0);
        QCOMPARE(model.rowCount(row), 5);
        QCOMPARE(model.columnCount(row), 3);
    });
}

void ListRowsTest::keepsFileOrderOfEqualNames()
{
    QVector<QPair<QByteArray, uint>> accounts{{"ormel-admin", 27}};
    QStringList expected;
    for (uint id = 1000; id < 1040; ++id) {
        accounts.append({"twin", id});
        expected.append(QStringLiteral("twin | %1 | No").arg(id));
    }
    setUsersAndGroups(accounts);
    withList([&](auto /*kind*/, auto &model) { QCOMPARE(rowTexts(model), expected); });
}

void ListRowsTest::isEmptyWithoutAccounts()
{
    withKind([](auto kind) {
        using Kind = decltype(kind);
        const auto lockedBy = Kind::lockedBy(text("bob"));
        Sandbox::remove(Kind::path());
        MessageRecorder recorder;
        typename Kind::Model model(lockedBy, words("bob"));
        const TableTester tester(&model);

        QCOMPARE(recorder.takeTexts(), QStringList(Kind::unableToOpen()));
        QCOMPARE(model.rowCount(), 0);
        QVERIFY(model.isEmpty());
        QCOMPARE(Kind::selectedNames(model), QStringList());
        QVERIFY(!Kind::find(model, text("bob")).isValid());
        QVERIFY(!model.removeRows(0, 1));
        for (const auto filter : {model.All, model.Ordinary}) {
            model.setFilter(filter);
            QVERIFY(model.isEmpty());
        }
    });
}

void ListRowsTest::filterResetsOnce()
{
    withList([](auto /*kind*/, auto &model) {
        ModelLog log(&model);
        for (const auto filter : {model.All, model.Ordinary}) {
            model.setFilter(filter);
            QCOMPARE(log.take(), lines({"reset"}));
            model.setFilter(filter);
            QCOMPARE(log.take(), QStringList());
        }
    });
}

void ListRowsTest::appliesFilterOnRequest()
{
    withList([](auto /*kind*/, auto &model) {
        ModelLog log(&model);
        model.applyFilter();
        QCOMPARE(log.take(), lines({"reset"}));
        QCOMPARE(shownNames(model), text("Zed adam bob"));

        model.setFilter(model.All);
        log.take();
        model.applyFilter();
        QCOMPARE(log.take(), lines({"reset"}));
        QCOMPARE(shownNames(model), text("Zed adam bob nobody ormel-admin"));
    });
}

void ListRowsTest::isEmptyWhenTheFilterHidesAll()
{
    withList([](auto /*kind*/, auto &model) {
        QVERIFY(!model.isEmpty());
        model.setFilter(model.Selected);
        QCOMPARE(model.rowCount(), 0);
        QVERIFY(model.isEmpty());
    });
}

void ListRowsTest::givesTextsPerColumn()
{
    withList([](auto /*kind*/, auto &model) {
        model.setFilter(model.All);
        QCOMPARE(rowTexts(model),
                 lines({"Zed | 1001 | No",
                        "adam | 1000 | No",
                        "bob | 1002 | No",
                        "nobody | 65534 | Yes",
                        "ormel-admin | 27 | Yes"}));
        QCOMPARE(model.columnCount(), 3);
    });
}

void ListRowsTest::givesNumbersForIds()
{
    setUsersAndGroups({{"ormel-admin", 27}, {"big", 4294967294}});
    withList([](auto kind, auto &model) {
        const QVariant id = model.index(0, decltype(kind)::idColumn).data();
        QCOMPARE(id.userType(), int(QMetaType::UInt));
        QCOMPARE(id.toUInt(), 4294967294u);
    });
}

void ListRowsTest::givesIcons()
{
    withKind([](auto kind) {
        using Kind = decltype(kind);
        const IconTheme theme({text(Kind::icon), text(Kind::systemIcon)});
        typename Kind::Model model;
        const TableTester tester(&model);
        model.setFilter(model.All);

        const auto icon = [&model](const char *name) {
            return Kind::find(model, text(name)).data(Qt::DecorationRole).template value<QIcon>().name();
        };
        QCOMPARE(icon("adam"), text(Kind::icon));
        QCOMPARE(icon("Zed"), text(Kind::icon));
        QCOMPARE(icon("ormel-admin"), text(Kind::systemIcon));
        QCOMPARE(icon("nobody"), text(Kind::systemIcon));
    });
}

void ListRowsTest::givesNothingForOtherRoles()
{
    withBoxes({}, [](auto kind, auto &model) {
        const QHash<int, QVector<int>> served{
            {model.NameColumn, {Qt::DisplayRole, Qt::DecorationRole, Qt::CheckStateRole}},
            {decltype(kind)::idColumn, {Qt::DisplayRole}},
            {model.SystemColumn, {Qt::DisplayRole}},
        };
        for (int column = 0; column < model.columnCount(); ++column) {
            for (int role = 0; role <= Qt::UserRole; ++role) {
                QCOMPARE(model.index(0, column).data(role).isValid(), served[column].contains(role));
            }
        }
        QVERIFY(!model.index(0, 0).data(-1).isValid());
    });
}

void ListRowsTest::givesNothingForForeignIndexes()
{
    withBoxes({}, [](auto kind, auto &model) {
        using Kind = decltype(kind);
        const QStandardItemModel larger(10, 10);
        const QVector<QModelIndex> indexes{
            QModelIndex(), larger.index(3, 0), larger.index(9, 9), model.index(3, 0), model.index(-1, 0)};
        ModelLog log(&model);
        for (const QModelIndex &index : indexes) {
            QVERIFY(!model.data(index).isValid());
            QVERIFY(!model.setData(index, Qt::Checked, Qt::CheckStateRole));
            QCOMPARE(model.flags(index), Qt::NoItemFlags);
            QVERIFY(!Kind::record(model, index));
        }
        const QModelIndex otherColumn = larger.index(0, 9);
        QVERIFY(!model.data(otherColumn).isValid());
        QVERIFY(!model.setData(otherColumn, Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(Kind::record(model, otherColumn)->name(), text("Zed"));
        QCOMPARE(log.take(), QStringList());

        const QModelIndex stale = model.index(2, 0);
        QVERIFY(model.removeRows(2, 1));
        QVERIFY(!model.data(stale).isValid());
        QVERIFY(!Kind::record(model, stale));
    });
}

void ListRowsTest::servesCheckStatesOnlyWhenSelectable()
{
    withList([](auto kind, auto &model) {
        decltype(kind)::setSelectedName(model, text("adam"), true);
        const auto checkState = [&model](int row) { return model.index(row, 0).data(Qt::CheckStateRole); };
        QVERIFY(!checkState(1).isValid());

        ModelLog log(&model);
        model.setSelectable(true);
        QVERIFY(model.isSelectable());
        QCOMPARE(log.take(), lines({"reset"}));
        QCOMPARE(checkState(1).userType(), int(QMetaType::Int));
        QCOMPARE(checkState(1).toInt(), 2);
        QCOMPARE(checkState(0).userType(), int(QMetaType::Int));
        QCOMPARE(checkState(0).toInt(), 0);

        model.setSelectable(true);
        QCOMPARE(log.take(), QStringList());
        model.setSelectable(false);
        QVERIFY(!model.isSelectable());
        QCOMPARE(log.take(), lines({"reset"}));
    });
}

void ListRowsTest::labelsBothHeaders()
{
    withList([](auto kind, const auto &model) {
        for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
            QCOMPARE(model.headerData(0, orientation).toString(), text("Name"));
            QCOMPARE(model.headerData(1, orientation).toString(), text(decltype(kind)::idHeader));
            QCOMPARE(model.headerData(2, orientation).toString(), text("System"));
            // The numbers of the base class.
            QCOMPARE(model.headerData(3, orientation), QVariant(4));
            QCOMPARE(model.headerData(-1, orientation), QVariant(0));
            QVERIFY(!model.headerData(0, orientation, Qt::ToolTipRole).isValid());
        }
    });
}

void ListRowsTest::flagsColumns()
{
    withList([](auto /*kind*/, auto &model) {
        const Qt::ItemFlags plain = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
        QCOMPARE(model.index(0, 0).flags(), plain);
        QCOMPARE(model.index(0, 1).flags(), plain | Qt::ItemNeverHasChildren);
        QCOMPARE(model.index(0, 2).flags(), plain | Qt::ItemNeverHasChildren);
        model.setSelectable(true);
        QCOMPARE(model.index(0, 0).flags(), plain | Qt::ItemIsUserCheckable);
        QCOMPARE(model.index(0, 1).flags(), plain | Qt::ItemNeverHasChildren);
    });
}

void ListRowsTest::findsRecordOfRow()
{
    withList([](auto kind, auto &model) {
        using Kind = decltype(kind);
        for (int column = 0; column < model.columnCount(); ++column) {
            const typename Kind::Record *record = Kind::record(model, model.index(2, column));
            QVERIFY(record);
            QCOMPARE(record->name(), text("bob"));
            QCOMPARE(Kind::id(*record), 1002u);
        }
    });
}

void ListRowsTest::findsRowByName()
{
    withList([](auto kind, auto &model) {
        const auto find = [&model](const char *name) { return decltype(kind)::find(model, text(name)); };
        QCOMPARE(find("adam"), model.index(1, 0));
        QVERIFY(!find("Adam").isValid());
        QVERIFY(!find("zed").isValid());
        QVERIFY(!find("ada").isValid());
        QVERIFY(!find("").isValid());

        QVERIFY(!find("ormel-admin").isValid());
        model.setFilter(model.All);
        QCOMPARE(find("ormel-admin"), model.index(4, 0));
        model.setFilter(model.System);
        QCOMPARE(find("ormel-admin"), model.index(1, 0));
        QVERIFY(!find("adam").isValid());
    });
}

void ListRowsTest::findsFirstOfTwins()
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

QTEST_MAIN(ListRowsTest)

#include "listrowstest.moc"
