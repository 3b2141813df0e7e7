/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "patience.h"
#include "samplelist.h"
#include "windowparts.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QMimeData>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

using namespace SampleList;

namespace
{
/** Does @p work, which opens a file dialog, and chooses @p path in that after @p prepare. */
template<typename Work>
void chooseFile(const QString &path, Work work, const std::function<void(QFileDialog &)> &prepare = {})
{
    QTimer timer; // fires in the event loop of the dialog
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget())) {
            timer.stop();
            if (prepare) {
                prepare(*dialog);
            }
            dialog->selectFile(path);
            QMetaObject::invokeMethod(dialog, "accept");
        }
    });
    timer.start(0);
    work();
}
}

/** What can be done with the rows of a list: copies, columns, actions. */
class RecordRowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copiesSelectedRows();
    void copiesColumnsInTheirOrder();
    void copiesNothingWithoutSelection();
    void exportsAllShownRows_data();
    void exportsAllShownRows();
    void addsSuffixOfChosenType_data();
    void addsSuffixOfChosenType();
    void hidesColumnsByMenu();
    void offersActionsInContextMenu();
    void makesRoomForContents();
    void makesRoomEachTime();
    void givesSentencesTheRoomThatIsLeft();
    void remembersState();
    void fitsColumnsWhoseWidthsNobodyChose();
    void survivesOtherSettings();
};

void RecordRowsTest::copiesSelectedRows()
{
    List list;
    list.view->setShownColumns({UserModel::NameColumn, UserModel::UidColumn, UserModel::KindColumn});
    list.view->setCurrentName(text("root"));
    list.addToSelection("ada");
    QVERIFY(QTest::qWaitForWindowActive(&list.list, patience));
    list.view->setFocus();
    QTest::keyClick(list.view, Qt::Key_C, Qt::ControlModifier);
    const QClipboard &clipboard = *QGuiApplication::clipboard();
    QCOMPARE(clipboard.text(), text("ada\t1001\tOrdinary user\nroot\t0\tSystem account"));

    list.action("Copy as CSV")->trigger();
    const QString csv = text("Login,UID,Kind\r\nada,1001,Ordinary user\r\nroot,0,System account\r\n");
    QCOMPARE(clipboard.text(), csv);
    QCOMPARE(QString::fromUtf8(clipboard.mimeData()->data(text("text/csv"))), csv);

    list.action("Copy as JSON")->trigger();
    const QJsonArray rows = QJsonDocument::fromJson(clipboard.mimeData()->data(text("application/json"))).array();
    QCOMPARE(rows.size(), 2);
    QCOMPARE(rows.at(0).toObject(),
             QJsonObject({{text("name"), text("ada")}, {text("uid"), 1001}, {text("system"), false}}));
}

void RecordRowsTest::copiesColumnsInTheirOrder()
{
    List list;
    list.view->setShownColumns({UserModel::NameColumn, UserModel::UidColumn});
    list.view->header()->moveSection(list.view->header()->visualIndex(UserModel::UidColumn), 0);
    list.view->setCurrentName(text("ada"));
    list.action("Copy")->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), text("1001\tada"));
}

void RecordRowsTest::copiesNothingWithoutSelection()
{
    List list;
    QVERIFY(list.action("Copy")->isEnabled());
    list.view->clearSelection();
    QVERIFY(!list.action("Copy")->isEnabled());
    list.action("Select All")->trigger();
    QVERIFY(list.action("Copy as JSON")->isEnabled());
    QCOMPARE(list.selected(), text("ada bob carl dora root"));
    QTest::keyClicks(list.search, text("nobody"));
    QVERIFY(!list.action("Copy as CSV")->isEnabled());
}

void RecordRowsTest::exportsAllShownRows_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");

    const QByteArray csv = "Login,UID\r\nada,1001\r\nbob,1002\r\n";
    QTest::newRow("CSV") << text("users.csv") << csv;
    QTest::newRow("unknown") << text("users.list") << csv;
    QTest::newRow("text") << text("users.TXT") << QByteArray("ada\t1001\nbob\t1002\n");
    QTest::newRow("JSON") << text("users.json")
                          << QByteArray("[\n    {\n        \"name\": \"ada\",\n        \"uid\": 1001\n    },\n"
                                        "    {\n        \"name\": \"bob\",\n        \"uid\": 1002\n    }\n]\n");
}

void RecordRowsTest::exportsAllShownRows()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);

    const QTemporaryDir directory;
    List list;
    list.view->setShownColumns({UserModel::NameColumn, UserModel::UidColumn});
    QTest::keyClicks(list.search, text("b"));
    QTest::keyClick(list.search, Qt::Key_Escape);
    list.model.setRecords(users({"root", "ada", "bob"}));
    QTest::keyClick(list.filter, Qt::Key_Down);
    const QString path = directory.filePath(name);
    chooseFile(path, [&] { list.action("Export\u2026")->trigger(); });
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), content);
}

void RecordRowsTest::addsSuffixOfChosenType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("suffix");

    QTest::newRow("CSV") << 0 << text("csv");
    QTest::newRow("JSON") << 1 << text("json");
    QTest::newRow("text") << 2 << text("txt");
}

void RecordRowsTest::addsSuffixOfChosenType()
{
    QFETCH(int, type);
    QFETCH(QString, suffix);

    const QTemporaryDir directory;
    List list;
    const auto choose = [type](QFileDialog &dialog) {
        auto *types = part<QComboBox>(dialog, "fileTypeCombo");
        for (int i = 0; i < type; ++i) {
            QTest::keyClick(types, Qt::Key_Down);
        }
    };
    chooseFile(
        directory.filePath(text("list")), [&] { list.action("Export\u2026")->trigger(); }, choose);
    QCOMPARE(QDir(directory.path()).entryList(QDir::Files), QStringList(text("list.") + suffix));
}

void RecordRowsTest::hidesColumnsByMenu()
{
    List list;
    list.view->setShownColumns({UserModel::NameColumn, UserModel::UidColumn});
    const QList<QAction *> actions = list.view->columnActions();
    QCOMPARE(actions.size(), list.model.columnCount());
    QVERIFY(!actions.at(UserModel::NameColumn)->isEnabled());
    QVERIFY(actions.at(UserModel::UidColumn)->isChecked());
    QVERIFY(!actions.at(UserModel::ShellColumn)->isChecked());
    actions.at(UserModel::ShellColumn)->trigger();
    actions.at(UserModel::UidColumn)->trigger();
    QCOMPARE(list.view->shownColumns(), QVector<int>({UserModel::NameColumn, UserModel::ShellColumn}));
    QCOMPARE(list.view->header()->actions(), actions);
}

void RecordRowsTest::offersActionsInContextMenu()
{
    List list;
    QStringList titles;
    QTimer::singleShot(0, &list.list, [&titles] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        const QList<QAction *> actions = menu ? menu->actions() : QList<QAction *>();
        for (const QAction *action : actions) {
            if (!action->isSeparator()) {
                titles.append(action->text().remove(QLatin1Char('&')));
            }
        }
        if (menu) {
            menu->close();
        }
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(list.view, &event);
    QCOMPARE(titles,
             QStringList({text("Copy"),
                          text("Copy as CSV"),
                          text("Copy as JSON"),
                          text("Select All"),
                          QStringLiteral(u"Export\u2026"),
                          text("Columns")}));
}

void RecordRowsTest::makesRoomForContents()
{
    UserModel model;
    RecordView view(&model);
    model.setRecords({user(text("a-rather-long-name"), 1), user(text("x").repeated(500), 2)});
    const QFontMetrics metrics = view.fontMetrics();
    QVERIFY(view.columnWidth(0) > metrics.horizontalAdvance(text("a-rather-long-name")));
    QVERIFY(view.columnWidth(0) < metrics.horizontalAdvance(text("x").repeated(100)));
    view.setColumnWidth(0, 77);
    model.setRecords({user(text("ada"), 1)});
    QCOMPARE(view.columnWidth(0), 77);
}

void RecordRowsTest::makesRoomEachTime()
{
    UserModel model;
    RecordView view(&model);
    view.setAlwaysFitting(true);
    model.setRecords({user(text("ada"), 1)});
    const int narrow = view.columnWidth(0);
    model.setRecords({user(text("a-rather-long-name"), 1)});
    QVERIFY(view.columnWidth(0) > narrow);
    view.setColumnHidden(2, true);
    view.setColumnHidden(2, false);
    model.setRecords({user(text("ada"), 1)});
    QCOMPARE(view.columnWidth(0), narrow);
    view.setColumnWidth(1, 77); // chosen by the operator
    model.setRecords({user(text("a-rather-long-name"), 1)});
    QCOMPARE(view.columnWidth(0), narrow);
}

void RecordRowsTest::givesSentencesTheRoomThatIsLeft()
{
    UserModel model;
    RecordView view(&model);
    view.setShownColumns({UserModel::NameColumn, UserModel::UidColumn});
    view.setWideColumn(UserModel::NameColumn);
    const int length = 90 * view.fontMetrics().averageCharWidth();
    view.resize(length / 2, 300);
    view.show();
    model.setRecords({user(text("sentence ").repeated(40), 1)});
    const int cut = view.columnWidth(UserModel::NameColumn);
    QVERIFY(cut < length);
    view.resize(2 * length, 300);
    QTRY_VERIFY_WITH_TIMEOUT(view.columnWidth(UserModel::NameColumn) > length, patience);
    QCOMPARE(view.header()->length(), view.viewport()->width());
    view.resize(length / 2, 300);
    QTRY_COMPARE_WITH_TIMEOUT(view.columnWidth(UserModel::NameColumn), cut, patience);
}

void RecordRowsTest::remembersState()
{
    const QTemporaryDir directory;
    QSettings settings(directory.filePath(text("window.ini")), QSettings::IniFormat);
    {
        List list;
        QTest::keyClick(list.filter, Qt::Key_Down);
        list.view->setShownColumns({UserModel::NameColumn, UserModel::HomeColumn, UserModel::UidColumn});
        list.view->setColumnWidth(UserModel::HomeColumn, 123);
        list.view->header()->moveSection(list.view->header()->visualIndex(UserModel::HomeColumn), 1);
        list.view->sortByColumn(UserModel::UidColumn, Qt::DescendingOrder);
        list.view->setCurrentName(text("bob"));
        list.list.saveState(settings);
    }
    UserModel model;
    RecordList list(text("userList"), &model, texts());
    list.restoreState(settings);
    model.setRecords(users({"root", "ada", "bob", "carl"}));
    QCOMPARE(part<QComboBox>(list, "filterComboBox")->currentIndex(), 1);
    QCOMPARE(list.view()->shownColumns(),
             QVector<int>({UserModel::NameColumn, UserModel::HomeColumn, UserModel::UidColumn}));
    QCOMPARE(list.view()->columnWidth(UserModel::HomeColumn), 123);
    QCOMPARE(shownRows(*list.view()).join(QLatin1Char(' ')), text("carl|1003| bob|1002| ada|1001|"));
    QCOMPARE(model.name(list.view()->currentRecord()), text("bob"));
    QVERIFY(!list.view()->columnActions().at(UserModel::FullNameColumn)->isChecked());
}

void RecordRowsTest::fitsColumnsWhoseWidthsNobodyChose()
{
    const QTemporaryDir directory;
    QSettings settings(directory.filePath(text("window.ini")), QSettings::IniFormat);
    List().list.saveState(settings);
    UserModel model;
    RecordList list(text("userList"), &model, texts());
    list.restoreState(settings);
    const int narrow = list.view()->columnWidth(UserModel::NameColumn);
    model.setRecords(users({"a-rather-long-name"}));
    QVERIFY(list.view()->columnWidth(UserModel::NameColumn) > narrow);
}

void RecordRowsTest::survivesOtherSettings()
{
    const QTemporaryDir directory;
    QSettings settings(directory.filePath(text("window.ini")), QSettings::IniFormat);
    settings.setValue(text("userList/filter"), 99);
    settings.setValue(text("userListView/header"), QByteArray("nonsense"));
    List list;
    const QVector<int> columns = list.view->shownColumns();
    list.list.restoreState(settings);
    QCOMPARE(list.filter->currentIndex(), 0);
    QCOMPARE(list.view->shownColumns(), columns);
    QCOMPARE(list.names().size(), 5);
}

QTEST_MAIN(RecordRowsTest)

#include "recordrowstest.moc"
