/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "contrast.h"
#include "darkpalette.h"
#include "samplelist.h"

#include <QApplication>
#include <QStyle>

using namespace SampleList;

// How a list marks what is searched for and what has just changed.

namespace
{
/** What everybody can read. */
constexpr qreal leastContrast = 4.5;

/** How high the line below a hit is, with some room. */
constexpr int lineHeight = 4;
constexpr int outline = 3;

QImage cell(const RecordView &view, const QModelIndex &index)
{
    return view.viewport()->grab(view.visualRect(index)).toImage();
}

bool hasMark(const RecordView &view, const QModelIndex &index)
{
    const QImage picture = cell(view, index);
    const QRgb color = QApplication::palette().color(QPalette::Link).rgb();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == color) {
                return true;
            }
        }
    }
    return false;
}

/** The contrast of the letters of a cell, whose text fills its left part, without the outline of a selection. */
qreal letterContrast(const List &list, const QModelIndex &index)
{
    const QImage picture = cell(*list.view, index);
    const int width = list.view->fontMetrics().horizontalAdvance(index.data().toString());
    return contrast(picture.copy(outline, outline, width - outline, picture.height() - lineHeight - outline));
}

UserRecord userWithNumber()
{
    UserRecord user = SampleList::user(text("a7"), 1007);
    user.gecos = text("Full 7");
    user.primaryGroup = text("g7");
    user.groups = QStringList({text("x"), text("g7")});
    user.shell = text("/bin/s7");
    user.home = text("/home/7");
    user.gid = 17;
    return user;
}
}

class HitMarksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void marksHitsInEveryColumn();
    void marksWordsWithoutSearch();
    void marksHitsInMirroredLists();
    void keepsLettersReadable_data();
    void keepsLettersReadable();
    void cleanup();
};

void HitMarksTest::marksHitsInEveryColumn()
{
    List list;
    list.model.setRecords({userWithNumber()});
    list.list.resize(1600, 400);
    list.view->clearSelection();
    for (int column = 0; column < list.model.columnCount(); ++column) {
        const QModelIndex index = list.model.index(0, column);
        list.search->clear();
        list.view->clearSelection();
        QVERIFY2(!hasMark(*list.view, index), list.model.columns().at(column).id);
        list.search->setText(text("7"));
        list.view->clearSelection();
        const bool isHit = index.data().toString().contains(QLatin1Char('7'));
        QCOMPARE(hasMark(*list.view, index), isHit);
    }
}

void HitMarksTest::marksWordsWithoutSearch()
{
    List list;
    list.model.setRecords({userWithNumber(), SampleList::user(text("b"), 1008)});
    list.list.resize(1600, 400);
    list.view->clearSelection();
    const QModelIndex name = list.model.index(0, UserModel::NameColumn);
    list.model.setMarks(SearchWords(text("7")));
    QVERIFY(hasMark(*list.view, name));
    QCOMPARE(list.model.rowCount(), 2);
    list.model.setMarks({});
    QVERIFY(!hasMark(*list.view, name));
    // What is searched for comes first.
    list.model.setMarks(SearchWords(text("7")));
    list.search->setText(text("full"));
    list.view->clearSelection();
    QVERIFY(!hasMark(*list.view, name));
    QVERIFY(hasMark(*list.view, list.model.index(0, UserModel::FullNameColumn)));
}

void HitMarksTest::marksHitsInMirroredLists()
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    List list;
    list.model.setRecords({userWithNumber()});
    list.list.resize(1600, 400);
    list.search->setText(text("/home/7"));
    list.view->clearSelection();
    QVERIFY(hasMark(*list.view, list.model.index(0, UserModel::HomeColumn)));
    QVERIFY(!hasMark(*list.view, list.model.index(0, UserModel::ShellColumn)));
}

void HitMarksTest::keepsLettersReadable_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::addColumn<bool>("isSelected");

    const QPalette light = QApplication::style()->standardPalette();
    for (const bool isSelected : {false, true}) {
        const char *state = isSelected ? "selected" : "not selected";
        QTest::addRow("light, %s", state) << light << isSelected;
        QTest::addRow("dark, %s", state) << darkPalette() << isSelected;
    }
}

void HitMarksTest::keepsLettersReadable()
{
    QFETCH(QPalette, palette);
    QFETCH(bool, isSelected);

    QApplication::setPalette(palette);
    List list;
    list.model.setRecords({user(text("hhhhhhhh"), 1000)});
    list.view->setColumnWidth(1, 300); // the whole text
    const QModelIndex index = list.model.index(0, 1);
    const auto contrastNow = [&] {
        list.view->selectionModel()->select(list.model.index(0, 0),
                                            (isSelected ? QItemSelectionModel::Select : QItemSelectionModel::Deselect)
                                                | QItemSelectionModel::Rows);
        return letterContrast(list, index);
    };
    const qreal usual = contrastNow();
    const qreal wanted = qMin(leastContrast, usual);
    list.search->setText(text("full hhhhhhhh"));
    QVERIFY2(contrastNow() >= wanted, qPrintable(text("hits: %1 of %2").arg(contrastNow()).arg(usual)));
    list.search->clear();
    list.model.setNews({text("hhhhhhhh")});
    list.model.setRecords({user(text("hhhhhhhh"), 1000)});
    QVERIFY2(contrastNow() >= wanted, qPrintable(text("news: %1 of %2").arg(contrastNow()).arg(usual)));
}

void HitMarksTest::cleanup()
{
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QApplication::setPalette(QApplication::style()->standardPalette());
}

QTEST_MAIN(HitMarksTest)

#include "hitmarkstest.moc"
