/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "usermodel.h"

#include "patience.h"
#include "processortime.h"
#include "ranking.h"
#include "texts.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

namespace
{
UserRecord user(const char *name, uint uid, const char *gecos = "")
{
    UserRecord user;
    user.name = text(name);
    user.uid = uid;
    user.gecos = QString::fromUtf8(gecos);
    user.system = uid < 1000;
    return user;
}

QString shown(const RecordModel &model, int column = 0)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row) {
        texts.append(model.index(row, column).data().toString());
    }
    return texts.join(QLatin1Char(' '));
}

QVector<UserRecord> users()
{
    QVector<UserRecord> users{
        user("root", 0, "root"),
        user("bob", 1001, "Robert Bell,Engineering"),
        user("ada", 1000, "Ada \xc3\x96st"),
        user("Carl", 999),
        user("user10", 20000),
        user("user9", 3000000000),
    };
    users[1].groups = QStringList({text("staff"), text("audio")});
    users[1].primaryGroup = text("staff");
    users[1].gid = 4711;
    users[1].home = text("/srv/Bobs");
    users[1].shell = text("/bin/zsh");
    users[2].administrator = true;
    return users;
}
}

/** The model of lists of accounts, tested with users. */
class RecordModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsRecordsByName();
    void holdsValues();
    void sortsByType_data();
    void sortsByType();
    void sortsEqualValuesByName();
    void keepsPersistentIndexesWhenSorted();
    void searchesEverywhere_data();
    void searchesEverywhere();
    void doesNotSearchOtherTexts();
    void filters_data();
    void filters();
    void searchesWithinFilter();
    void findsShownRecords();
    void marksNews();
    void ranksEqualValuesAlike();
    void isFastWithManyRecords();
};

void RecordModelTest::listsRecordsByName()
{
    UserModel model;
    QAbstractItemModelTester tester(&model);
    QCOMPARE(model.rowCount(), 0);
    model.setRecords(users());
    QCOMPARE(shown(model), text("ada bob Carl root user9 user10"));
    QCOMPARE(model.recordCount(), 6);
    QCOMPARE(model.recordAt(model.index(0, 0)), 2);
    QCOMPARE(model.recordAt(QModelIndex()), -1);
    QCOMPARE(model.rowCount(model.index(0, 0)), 0);
    model.setRecords({});
    QCOMPARE(model.rowCount(), 0);
}

void RecordModelTest::holdsValues()
{
    UserModel model;
    model.setRecords(users());
    QStringList cells;
    QStringList types;
    for (int column = 0; column < model.columnCount(); ++column) {
        const QModelIndex index = model.index(1, column);
        cells.append(index.data().toString());
        types.append(text(index.data(RecordModel::ValueRole).typeName()));
    }
    QCOMPARE(cells.join(QLatin1Char('|')),
             text("bob|Robert Bell|1001|staff|staff, audio|No|/bin/zsh|Ordinary user|/srv/Bobs|4711"));
    QCOMPARE(types.join(QLatin1Char('|')),
             text("QString|QString|uint|QString|QStringList|bool|QString|bool|QString|uint"));
    QCOMPARE(model.index(0, UserModel::AdministratorColumn).data().toString(), text("Yes"));
    QCOMPARE(model.index(3, UserModel::KindColumn).data().toString(), text("System account"));
    QVERIFY(!model.index(0, 0).data(Qt::EditRole).isValid());
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), text("Full name"));
}

void RecordModelTest::sortsByType_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<Qt::SortOrder>("order");
    QTest::addColumn<QString>("names");

    QTest::newRow("names") << int(UserModel::NameColumn) << Qt::AscendingOrder << "ada bob Carl root user9 user10";
    QTest::newRow("names, descending") << int(UserModel::NameColumn) << Qt::DescendingOrder
                                       << "user10 user9 root Carl bob ada";
    QTest::newRow("numbers") << int(UserModel::UidColumn) << Qt::AscendingOrder << "root Carl ada bob user10 user9";
    QTest::newRow("texts") << int(UserModel::FullNameColumn) << Qt::AscendingOrder << "Carl user9 user10 ada bob root";
    QTest::newRow("truth") << int(UserModel::KindColumn) << Qt::AscendingOrder << "ada bob user9 user10 Carl root";
    QTest::newRow("truth, descending") << int(UserModel::KindColumn) << Qt::DescendingOrder
                                       << "Carl root ada bob user9 user10";
    QTest::newRow("lists") << int(UserModel::GroupsColumn) << Qt::DescendingOrder << "bob ada Carl root user9 user10";
}

void RecordModelTest::sortsByType()
{
    QFETCH(int, column);
    QFETCH(Qt::SortOrder, order);
    QFETCH(QString, names);

    UserModel model;
    QAbstractItemModelTester tester(&model);
    model.setRecords(users());
    model.sort(column, order);
    QCOMPARE(shown(model), names);
    model.setRecords(users());
    QCOMPARE(shown(model), names);
    model.sort(99);
    QCOMPARE(shown(model), names);
}

void RecordModelTest::sortsEqualValuesByName()
{
    UserModel model;
    model.setRecords({user("b", 1), user("a", 1), user("b", 0), user("B", 1)});
    model.sort(UserModel::UidColumn, Qt::DescendingOrder);
    QCOMPARE(shown(model), text("a b B b"));
    QCOMPARE(shown(model, UserModel::UidColumn), text("1 1 1 0"));
}

void RecordModelTest::keepsPersistentIndexesWhenSorted()
{
    UserModel model;
    model.setRecords(users());
    QVector<QPersistentModelIndex> indexes;
    for (int row = 0; row < model.rowCount(); ++row) {
        indexes.append(model.index(row, row % 3));
    }
    model.sort(UserModel::UidColumn, Qt::DescendingOrder);
    QStringList names;
    for (int i = 0; i < indexes.size(); ++i) {
        QCOMPARE(indexes.at(i).column(), i % 3);
        names.append(indexes.at(i).sibling(indexes.at(i).row(), 0).data().toString());
    }
    QCOMPARE(names.join(QLatin1Char(' ')), text("ada bob Carl root user9 user10"));
}

void RecordModelTest::searchesEverywhere_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QString>("names");

    QTest::newRow("login") << "BO"
                           << "bob";
    QTest::newRow("full name") << "robert bell"
                               << "bob";
    QTest::newRow("other GECOS field") << "engineering"
                                       << "bob";
    QTest::newRow("beyond ASCII") << QString::fromUtf8("\xc3\xb6st") << "ada";
    QTest::newRow("uid") << "100"
                         << "ada bob";
    QTest::newRow("large uid") << "3000000000"
                               << "user9";
    QTest::newRow("gid") << "4711"
                         << "bob";
    QTest::newRow("group") << "udi"
                           << "bob";
    QTest::newRow("home") << "/SRV/bob"
                          << "bob";
    QTest::newRow("shell") << "zsh"
                           << "bob";
    QTest::newRow("words in several fields") << "bin staff 1001"
                                             << "bob";
    QTest::newRow("one word too many") << "bin staff 1002"
                                       << "";
    QTest::newRow("nothing") << " "
                             << "ada bob Carl root user9 user10";
}

void RecordModelTest::searchesEverywhere()
{
    QFETCH(QString, search);
    QFETCH(QString, names);

    UserModel model;
    QAbstractItemModelTester tester(&model);
    model.setRecords(users());
    model.setSearch(SearchWords(search));
    QCOMPARE(shown(model), names);
    QCOMPARE(model.recordCount(), 6);
    model.setRecords(users());
    QCOMPARE(shown(model), names);
    model.setSearch({});
    QCOMPARE(model.rowCount(), 6);
}

void RecordModelTest::doesNotSearchOtherTexts()
{
    UserModel model;
    model.setRecords(users());
    for (const char *word : {"Ordinary", "Yes"}) {
        model.setSearch(SearchWords(text(word)));
        QCOMPARE(model.rowCount(), 0);
    }
}

void RecordModelTest::filters_data()
{
    QTest::addColumn<int>("filter");
    QTest::addColumn<QString>("names");

    QTest::newRow("all") << int(UserModel::All) << "ada bob Carl root user9 user10";
    QTest::newRow("ordinary") << int(UserModel::Ordinary) << "ada bob user9 user10";
    QTest::newRow("system") << int(UserModel::System) << "Carl root";
    QTest::newRow("administrators") << int(UserModel::Administrators) << "ada";
}

void RecordModelTest::filters()
{
    QFETCH(int, filter);
    QFETCH(QString, names);

    UserModel model;
    QAbstractItemModelTester tester(&model);
    model.setFilter(filter);
    model.setRecords(users());
    QCOMPARE(shown(model), names);
    QCOMPARE(model.filter(), filter);
}

void RecordModelTest::searchesWithinFilter()
{
    UserModel model;
    model.setRecords(users());
    model.setFilter(UserModel::System);
    model.setSearch(SearchWords(text("a")));
    QCOMPARE(shown(model), text("Carl"));
    model.setFilter(UserModel::Ordinary);
    QCOMPARE(shown(model), text("ada bob"));
}

void RecordModelTest::findsShownRecords()
{
    UserModel model;
    model.setRecords(users());
    QCOMPARE(model.find(text("Carl")), model.index(2, 0));
    QVERIFY(!model.find(text("carl")).isValid());
    QVERIFY(model.hasRecord(text("Carl")));
    QVERIFY(!model.hasRecord(text("carl")));
    model.setFilter(UserModel::Ordinary);
    QVERIFY(!model.find(text("Carl")).isValid());
    QVERIFY(model.hasRecord(text("Carl")));
}

void RecordModelTest::marksNews()
{
    UserModel model;
    model.setNews({text("bob")});
    model.setRecords(users());
    QVERIFY(model.index(1, 2).data(RecordModel::NewsRole).toBool());
    QVERIFY(!model.index(0, 2).data(RecordModel::NewsRole).toBool());
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QVERIFY(changed.wait(patience));
    QVERIFY(!model.index(1, 2).data(RecordModel::NewsRole).toBool());
}

void RecordModelTest::ranksEqualValuesAlike()
{
    QCOMPARE(ranksOf({text("b"), text("a"), text("b"), text("c")}), QVector<int>({1, 0, 1, 2}));
    QCOMPARE(ranksOf({10U, 9U, 4294967295U}), QVector<int>({1, 0, 2}));
    QCOMPARE(ranksOf({true, false, true}), QVector<int>({1, 0, 1}));
    QCOMPARE(ranksOf({text("a10"), text("a9"), QVariant()}), QVector<int>({2, 1, 0}));
    QCOMPARE(ranksOf({}), QVector<int>());
}

void RecordModelTest::isFastWithManyRecords()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("Sanitizers take their time");
#endif
    // The longest time for which an event loop may be kept from other work.
    constexpr double limit = 0.05;
    QVector<UserRecord> many;
    for (int i = 0; i < 10000; ++i) {
        UserRecord record = user("", 1000 + i);
        record.name = text("user%1").arg(7919 * i % 10000);
        record.gecos = text("User Number %1,Room %2,,").arg(i).arg(i % 100);
        record.home = text("/home/") + record.name;
        record.shell = text("/bin/bash");
        record.groups = QStringList({record.name, text("shared1"), text("shared2"), text("shared3")});
        many.append(record);
    }
    UserModel model;
    const auto seconds = [](const auto &work) {
        double worst = 0;
        for (int i = 0; i < 5; ++i) {
            const double before = processorSeconds(RUSAGE_SELF);
            work();
            worst = qMax(worst, processorSeconds(RUSAGE_SELF) - before);
        }
        return worst;
    };
    const double filling = seconds([&] { model.setRecords(many); });
    QVERIFY2(filling < limit, qPrintable(QString::number(filling)));
    const double searching = seconds([&] { model.setSearch(SearchWords(text("no such user"))); });
    QVERIFY2(searching < limit, qPrintable(QString::number(searching)));
    const double clearing = seconds([&] { model.setSearch({}); });
    QVERIFY2(clearing < limit, qPrintable(QString::number(clearing)));
    int column = 0;
    const double sorting = seconds([&] { model.sort(column++, Qt::DescendingOrder); });
    QVERIFY2(sorting < limit, qPrintable(QString::number(sorting)));
    qInfo("filling %.1f ms, searching %.1f ms, clearing %.1f ms, sorting %.1f ms",
          filling * 1000,
          searching * 1000,
          clearing * 1000,
          sorting * 1000);
}

QTEST_MAIN(RecordModelTest)

#include "recordmodeltest.moc"
