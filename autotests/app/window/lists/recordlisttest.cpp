/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "patience.h"
#include "samplelist.h"

#include <QDialog>
#include <QScrollBar>
#include <QSignalSpy>

using namespace SampleList;

class RecordListTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsRows();
    void tellsThatNothingMatches();
    void clearsSearchByEsc();
    void leavesEscToTheWindowWithoutSearch();
    void leavesEscToDialogWithoutSearch();
    void leadsFromSearchToList_data();
    void leadsFromSearchToList();
    void comesBackToCurrentRecord();
    void staysWhereTheOperatorWent();
    void takesNextRecordInThePlaceOfOneThatIsGone();
    void keepsSelectionAndPlaceWhenFilledAgain();
    void reportsCurrentRecordOnce();
    void showsHiddenRecord();
    void findsRowsByTheirFirstLetters();
    void marksWhatIsFound();
};

void RecordListTest::countsRows()
{
    List list;
    QCOMPARE(list.count->text(), text("5 of 5"));
    QTest::keyClicks(list.search, text("o"));
    QCOMPARE(list.names().join(QLatin1Char(' ')), text("bob dora root"));
    QCOMPARE(list.count->text(), text("3 of 5"));
    QTest::keyClick(list.filter, Qt::Key_Down);
    QCOMPARE(list.count->text(), text("2 of 5"));
}

void RecordListTest::tellsThatNothingMatches()
{
    List list;
    QVERIFY(!list.noMatch->isVisible());
    QTest::keyClick(list.filter, Qt::Key_Down);
    QTest::keyClicks(list.search, text("nobody"));
    QVERIFY(list.noMatch->isVisible());
    QCOMPARE(list.noMatch->text(), text("No user matches."));
    QVERIFY(!list.view->isVisible());
    QTest::mouseClick(list.clear, Qt::LeftButton);
    QVERIFY(list.view->isVisible());
    QCOMPARE(list.names().size(), 5);
    QCOMPARE(list.search->text(), QString());
    QCOMPARE(list.filter->currentIndex(), 0);

    UserModel empty;
    RecordList emptyList(text("userList"), &empty, texts());
    emptyList.show();
    QVERIFY(!part<QLabel>(emptyList, "noMatch")->isVisible());
}

void RecordListTest::clearsSearchByEsc()
{
    List list;
    QTest::keyClicks(list.search, text("nobody"));
    QTest::keyClick(list.search, Qt::Key_Escape);
    QCOMPARE(list.search->text(), QString());
    QCOMPARE(list.names().size(), 5);
}

void RecordListTest::leavesEscToTheWindowWithoutSearch()
{
    List list;
    QAction action;
    action.setShortcut(Qt::Key_Escape);
    list.list.addAction(&action);
    QSignalSpy triggered(&action, &QAction::triggered);
    QVERIFY(QTest::qWaitForWindowActive(&list.list, patience));
    list.search->setFocus();
    QTest::keyClicks(list.search, text("a"));
    QTest::keyClick(list.search, Qt::Key_Escape);
    QCOMPARE(triggered.size(), 0);
    QTest::keyClick(list.search, Qt::Key_Escape);
    QCOMPARE(triggered.size(), 1);
}

void RecordListTest::leavesEscToDialogWithoutSearch()
{
    QDialog dialog;
    SearchField search(&dialog);
    dialog.show();
    QTest::keyClicks(&search, text("a"));
    QTest::keyClick(&search, Qt::Key_Escape);
    QVERIFY(dialog.isVisible());
    QTest::keyClick(&search, Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
}

void RecordListTest::leadsFromSearchToList_data()
{
    QTest::addColumn<Qt::Key>("key");

    QTest::newRow("down") << Qt::Key_Down;
    QTest::newRow("page down") << Qt::Key_PageDown;
    QTest::newRow("enter") << Qt::Key_Return;
}

void RecordListTest::leadsFromSearchToList()
{
    QFETCH(Qt::Key, key);

    List list;
    QVERIFY(QTest::qWaitForWindowActive(&list.list, patience));
    list.view->setCurrentName(text("carl"));
    list.list.focusSearch();
    QCOMPARE(QApplication::focusWidget(), list.search);
    QTest::keyClicks(list.search, text("r"));
    QCOMPARE(list.current(), text("carl"));
    QTest::keyClicks(list.search, text("oo"));
    QTest::keyClick(list.search, key);
    QCOMPARE(QApplication::focusWidget(), list.view);
    QCOMPARE(list.current(), text("root"));
    list.search->clear();
    QCOMPARE(list.current(), text("root"));
    QTest::keyClicks(list.search, text("nobody"));
    QTest::keyClick(list.search, key);
    QVERIFY(!list.view->hasFocus());
}

void RecordListTest::comesBackToCurrentRecord()
{
    List list;
    list.view->setCurrentName(text("carl"));
    QTest::keyClicks(list.search, text("bo"));
    QCOMPARE(list.current(), text("bob"));
    QCOMPARE(list.selected(), text("bob"));
    QTest::keyClicks(list.search, text("x"));
    QCOMPARE(list.current(), QString());
    list.search->clear();
    QCOMPARE(list.current(), text("carl"));
    QCOMPARE(list.selected(), text("carl"));
}

void RecordListTest::staysWhereTheOperatorWent()
{
    List list;
    list.view->setCurrentName(text("carl"));
    QTest::keyClicks(list.search, text("o"));
    clickText(*list.view, text("dora"));
    list.search->clear();
    QCOMPARE(list.current(), text("dora"));
}

void RecordListTest::takesNextRecordInThePlaceOfOneThatIsGone()
{
    List list;
    list.view->setCurrentName(text("carl"));
    list.model.setRecords(users({"root", "ada", "bob", "dora"}));
    QCOMPARE(list.current(), text("dora"));
    list.model.setRecords(users({"root", "ada", "bob", "carl", "dora"}));
    QCOMPARE(list.current(), text("dora"));
    list.view->setCurrentName(text("root"));
    list.model.setRecords(users({"ada", "bob"}));
    QCOMPARE(list.current(), text("bob"));
    list.model.setRecords({});
    QCOMPARE(list.current(), QString());
}

void RecordListTest::keepsSelectionAndPlaceWhenFilledAgain()
{
    QVector<UserRecord> many;
    for (int i = 0; i < 500; ++i) {
        many.append(user(text("user%1").arg(i), 1000 + i));
    }
    List list;
    list.model.setRecords(many);
    list.view->setCurrentName(text("user3"));
    list.addToSelection("user5");
    list.addToSelection("user7");
    QCOMPARE(list.selected(), text("user3 user5 user7"));
    list.view->verticalScrollBar()->setValue(100);
    const QString top = list.view->indexAt({}).data().toString();
    many.prepend(user(text("aaa"), 1));
    list.model.setRecords(many);
    QCOMPARE(list.selected(), text("user3 user5 user7"));
    QCOMPARE(list.current(), text("user7"));
    QCOMPARE(list.view->indexAt({}).data().toString(), top);
    list.view->sortByColumn(UserModel::UidColumn, Qt::DescendingOrder);
    QCOMPARE(list.selected(), text("user7 user5 user3"));
    QCOMPARE(list.current(), text("user7"));
}

void RecordListTest::reportsCurrentRecordOnce()
{
    List list;
    list.view->setCurrentName(text("carl"));
    QSignalSpy changed(list.view, &RecordView::currentRecordChanged);
    list.model.setRecords(users({"root", "ada", "bob", "carl", "dora"}));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(list.model.name(changed.at(0).at(0).toInt()), text("carl"));
    QTest::keyClick(list.view, Qt::Key_Down);
    QCOMPARE(changed.size(), 2);
    QTest::keyClick(list.view, Qt::Key_Right);
    QCOMPARE(changed.size(), 2);
    QSignalSpy activated(list.view, &RecordView::recordActivated);
    QTest::keyClick(list.view, Qt::Key_Return);
    QCOMPARE(activated.size(), 1);
    QCOMPARE(list.model.name(activated.at(0).at(0).toInt()), text("dora"));
}

void RecordListTest::showsHiddenRecord()
{
    List list;
    QTest::keyClick(list.filter, Qt::Key_End);
    QTest::keyClicks(list.search, text("roo"));
    QVERIFY(list.list.showRecord(text("root")));
    QCOMPARE(list.search->text(), text("roo"));
    QVERIFY(list.list.showRecord(text("ada")));
    QCOMPARE(list.current(), text("ada"));
    QCOMPARE(list.names().size(), 5);
    QVERIFY(!list.list.showRecord(text("nobody")));
    QCOMPARE(list.current(), text("ada"));
}

void RecordListTest::findsRowsByTheirFirstLetters()
{
    List list;
    QVERIFY(QTest::qWaitForWindowActive(&list.list, patience));
    // Also after a click on another column.
    list.view->setCurrentIndex(list.model.index(0, UserModel::UidColumn));
    QTest::keyClicks(list.view, text("ca"));
    QCOMPARE(list.current(), text("carl"));
}

void RecordListTest::marksWhatIsFound()
{
    List list;
    QTest::keyClicks(list.search, text("ob"));
    list.view->clearSelection(); // it has other colours
    const QImage bob = list.view->viewport()->grab(list.view->visualRect(list.model.index(0, 0))).toImage();
    const QRgb mark = list.view->palette().color(QPalette::Link).rgb();
    QVector<int> marked;
    for (int x = 0; x < bob.width(); ++x) {
        for (int y = 0; y < bob.height() && !marked.endsWith(x); ++y) {
            if (bob.pixel(x, y) == mark) {
                marked.append(x);
            }
        }
    }
    QVERIFY(qAbs(marked.size() - list.view->fontMetrics().horizontalAdvance(text("ob"))) <= 1);
    QCOMPARE(marked.constLast() - marked.constFirst() + 1, marked.size());
}

QTEST_MAIN(RecordListTest)

#include "recordlisttest.moc"
