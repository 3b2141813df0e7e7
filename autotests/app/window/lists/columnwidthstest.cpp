/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "patience.h"
#include "samplelist.h"

#include <QHeaderView>
#include <QScrollBar>

using namespace SampleList;

namespace
{
/** A user whose login and full name are long, in the default columns, with room for more than these. */
struct LongTexts {
    LongTexts()
    {
        view.setShownColumns(
            {UserModel::NameColumn, UserModel::FullNameColumn, UserModel::UidColumn, UserModel::KindColumn});
        UserRecord user = SampleList::user(text("systemd-timesync-of-clocks"), 997);
        user.gecos = text("systemd Time Synchronization of this machine");
        model.setRecords({user});
        setRoom(characters(100));
        view.show();
    }

    int characters(int count) const
    {
        return count * view.fontMetrics().averageCharWidth();
    }

    void setRoom(int width)
    {
        view.resize(width + 2 * view.frameWidth(), 400);
    }

    bool isScrolling() const
    {
        return view.horizontalScrollBar()->maximum() > 0;
    }

    UserModel model;
    RecordView view{&model};
};
}

class ColumnWidthsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void narrowsLongTextsForOthers();
    void scrollsWithoutRoomForAll();
    void makesRoomForAnotherColumn();
    void keepsChosenWidths();
};

void ColumnWidthsTest::narrowsLongTextsForOthers()
{
    LongTexts list;
    const int whole = list.view.header()->length();
    const int fullName = list.view.columnWidth(UserModel::FullNameColumn);
    const int kind = list.view.columnWidth(UserModel::KindColumn);
    list.setRoom(whole - 30);
    QCOMPARE(list.view.columnWidth(UserModel::FullNameColumn), fullName - 30);
    QCOMPARE(list.view.columnWidth(UserModel::KindColumn), kind);
    QTRY_VERIFY_WITH_TIMEOUT(!list.isScrolling(), patience);
    list.setRoom(whole + 30);
    QCOMPARE(list.view.columnWidth(UserModel::FullNameColumn), fullName);
}

void ColumnWidthsTest::scrollsWithoutRoomForAll()
{
    LongTexts list;
    const int login = list.view.columnWidth(UserModel::NameColumn);
    list.setRoom(list.characters(20));
    QCOMPARE(list.view.columnWidth(UserModel::NameColumn), login);
    QCOMPARE(list.view.columnWidth(UserModel::FullNameColumn), list.characters(16));
    QTRY_VERIFY_WITH_TIMEOUT(list.isScrolling(), patience);
}

void ColumnWidthsTest::makesRoomForAnotherColumn()
{
    LongTexts list;
    list.setRoom(list.view.header()->length());
    QAction *gid = list.view.columnActions().at(UserModel::GidColumn);
    QVERIFY(list.view.isColumnHidden(UserModel::GidColumn));
    gid->trigger();
    QVERIFY(!list.view.isColumnHidden(UserModel::GidColumn));
    QTRY_VERIFY_WITH_TIMEOUT(!list.isScrolling(), patience);
}

void ColumnWidthsTest::keepsChosenWidths()
{
    LongTexts list;
    list.setRoom(list.view.header()->length());
    list.view.setColumnWidth(UserModel::UidColumn, 222);
    const int fullName = list.view.columnWidth(UserModel::FullNameColumn);
    list.setRoom(list.characters(40));
    QCOMPARE(list.view.columnWidth(UserModel::UidColumn), 222);
    QCOMPARE(list.view.columnWidth(UserModel::FullNameColumn), fullName);
}

QTEST_MAIN(ColumnWidthsTest)

#include "columnwidthstest.moc"
