/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "bothlists.h"
#include "icontheme.h"
#include "messagerecorder.h"

#include <QStandardItemModel>

/** What UserListModel and GroupListModel do alike, but for changes of their rows. */
class ListModelsTest : public QObject
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

    void checksBoxes();
    void uncheckingTakesAnyOtherValue_data();
    void uncheckingTakesAnyOtherValue();
    void refusesOtherData_data();
    void refusesOtherData();
    void checksLockedAndBoxlessRows();
    void keepsCheckedRowInViewUntilFiltered();

    void findsRecordOfRow();
    void findsRowByName();
    void findsFirstOfTwins();

    void selectsNames();
    void selectsOneName();
    void selectsAllTwins();
    void leavesUnknownSelectedNamesOut();
    void togglesCheckBoxes();
};

void ListModelsTest::initTestCase_data()
{
    addBothKinds();
}

void ListModelsTest::init()
{
    setListedAccounts();
}

void ListModelsTest::isPlainTableModel()
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

void ListModelsTest::registersItsEnumerations()
{
    withKind([](auto kind) {
        using Kind = decltype(kind);
        QCOMPARE(enumerationTexts(Kind::Model::staticMetaObject), words(Kind::enumerations));
    });
}

void ListModelsTest::countsWithoutLookingAtTheParent()
{
    withKind([](auto kind) {
        typename decltype(kind)::Model model;
        model.setFilter(model.All);
        const QModelIndex row = model.index(0, 0);
        QCOMPARE(model.rowCount(row), 5);
        QCOMPARE(model.columnCount(row), 3);
    });
}

void ListModelsTest::keepsFileOrderOfEqualNames()
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

void ListModelsTest::isEmptyWithoutAccounts()
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

void ListModelsTest::filterResetsOnce()
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

void ListModelsTest::appliesFilterOnRequest()
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

void ListModelsTest::isEmptyWhenTheFilterHidesAll()
{
    withList([](auto /*kind*/, auto &model) {
        QVERIFY(!model.isEmpty());
        model.setFilter(model.Selected);
        QCOMPARE(model.rowCount(), 0);
        QVERIFY(model.isEmpty());
    });
}

void ListModelsTest::givesTextsPerColumn()
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

void ListModelsTest::givesNumbersForIds()
{
    setUsersAndGroups({{"ormel-admin", 27}, {"big", 4294967294}});
    withList([](auto kind, auto &model) {
        const QVariant id = model.index(0, decltype(kind)::idColumn).data();
        QCOMPARE(id.userType(), int(QMetaType::UInt));
        QCOMPARE(id.toUInt(), 4294967294u);
    });
}

void ListModelsTest::givesIcons()
{
    withKind([](auto kind) {
        using Kind = decltype(kind);
        const IconTheme theme({text(Kind::icon), text(Kind::systemIcon)});
        typename Kind::Model model;
        const TableTester tester(&model);
        model.setFilter(model.All);

        const auto icon = [&model](const char *name) {
            return Kind::find(model, text(name)).data(Qt::DecorationRole).template value<QIcon>();
        };
        QCOMPARE(icon("adam").name(), text(Kind::icon));
        QCOMPARE(icon("Zed").cacheKey(), icon("adam").cacheKey());
        QCOMPARE(icon("ormel-admin").name(), text(Kind::systemIcon));
        QCOMPARE(icon("nobody").name(), text(Kind::systemIcon));
        QCOMPARE(icon("nobody").cacheKey(), icon("ormel-admin").cacheKey());
    });
}

void ListModelsTest::givesNothingForOtherRoles()
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

void ListModelsTest::givesNothingForForeignIndexes()
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

void ListModelsTest::servesCheckStatesOnlyWhenSelectable()
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

void ListModelsTest::labelsBothHeaders()
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

void ListModelsTest::flagsColumns()
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

void ListModelsTest::checksBoxes()
{
    withBoxes({}, [](auto kind, auto &model) {
        using Kind = decltype(kind);
        ModelLog log(&model);
        QVERIFY(model.setData(model.index(1, 0), Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(log.take(), lines({"change 1,0-1,0 roles 10"}));
        QCOMPARE(Kind::selectedNames(model), words("adam"));
        QCOMPARE(rowText(model, 1), text("[x] adam | 1000 | No"));

        // Checking what is checked is a change for the views.
        QVERIFY(model.setData(model.index(1, 0), text("2"), Qt::CheckStateRole));
        QCOMPARE(log.take(), lines({"change 1,0-1,0 roles 10"}));
        QCOMPARE(Kind::selectedNames(model), words("adam"));
    });
}

void ListModelsTest::uncheckingTakesAnyOtherValue_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("Unchecked") << QVariant(0);
    QTest::newRow("PartiallyChecked") << QVariant(1);
    QTest::newRow("3") << QVariant(3);
    QTest::newRow("true") << QVariant(true);
    QTest::newRow("text") << QVariant(text("x"));
    QTest::newRow("invalid") << QVariant();
}

void ListModelsTest::uncheckingTakesAnyOtherValue()
{
    withBoxes(words("adam"), [](auto kind, auto &model) {
        QFETCH(QVariant, value);

        ModelLog log(&model);
        QVERIFY(model.setData(model.index(1, 0), value, Qt::CheckStateRole));
        QCOMPARE(log.take(), lines({"change 1,0-1,0 roles 10"}));
        QCOMPARE(decltype(kind)::selectedNames(model), QStringList());
    });
}

void ListModelsTest::refusesOtherData_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");

    QTest::newRow("name") << 0 << int(Qt::EditRole);
    QTest::newRow("display") << 0 << int(Qt::DisplayRole);
    QTest::newRow("check of id") << 1 << int(Qt::CheckStateRole);
    QTest::newRow("check of system") << 2 << int(Qt::CheckStateRole);
}

void ListModelsTest::refusesOtherData()
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

void ListModelsTest::checksLockedAndBoxlessRows()
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

void ListModelsTest::keepsCheckedRowInViewUntilFiltered()
{
    withBoxes(words("adam"), [](auto /*kind*/, auto &model) {
        model.setFilter(model.Selected);
        QVERIFY(model.setData(model.index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(rowTexts(model), lines({"[ ] adam | 1000 | No"}));
        model.applyFilter();
        QVERIFY(model.isEmpty());
    });
}

void ListModelsTest::findsRecordOfRow()
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

void ListModelsTest::findsRowByName()
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

void ListModelsTest::selectsNames()
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

void ListModelsTest::selectsOneName()
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

void ListModelsTest::leavesUnknownSelectedNamesOut()
{
    withBoxes({QString(), text("ghost"), text("Zed")}, [](auto kind, auto &model) {
        using Kind = decltype(kind);
        QCOMPARE(Kind::selectedNames(model), words("Zed"));

        // Known all the same: the account may come into being later.
        setUsersAndGroups({{"ormel-admin", 27}, {"Zed", 1001}, {"ghost", 1005}});
        model.reload();
        QCOMPARE(Kind::selectedNames(model), words("Zed ghost"));
    });
}

void ListModelsTest::togglesCheckBoxes()
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

QTEST_MAIN(ListModelsTest)

#include "listmodelstest.moc"
