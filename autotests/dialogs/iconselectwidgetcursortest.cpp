/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "edges.h"
#include "iconselectstage.h"

#include <QMouseEvent>
#include <QTest>

class IconSelectWidgetCursorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsCursor_data();
    void showsCursor();
    void roundsMousePositions_data();
    void roundsMousePositions();
    void findsFirstHandleInHashOrder();
    void unsetsCursorOnRelease();
    void keepsCursorDuringDrag();
};

void IconSelectWidgetCursorTest::showsCursor_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<int>("expected");

    // The image covers (0, 50) to (299, 249), the selection (50, 50) to (249, 249).
    const auto row = [](const char *name, int x, int y, int cursor) {
        QTest::addRow("%s (%d, %d)", name, x, y) << QPoint(x, y) << cursor;
    };
    row("top left, first", 50, 50, Qt::SizeFDiagCursor);
    row("top left, last", 61, 61, Qt::SizeFDiagCursor);
    row("right of top left", 62, 61, Qt::SizeAllCursor);
    row("below top left", 61, 62, Qt::SizeAllCursor);
    row("left of top left", 49, 50, Stage::noCursor);
    row("above top left", 50, 49, Stage::noCursor);
    row("top, first", 144, 50, Qt::SizeVerCursor);
    row("top, last", 155, 61, Qt::SizeVerCursor);
    row("left of top", 143, 50, Qt::SizeAllCursor);
    row("right of top", 156, 50, Qt::SizeAllCursor);
    row("top right, first", 238, 61, Qt::SizeBDiagCursor);
    row("top right, last", 249, 50, Qt::SizeBDiagCursor);
    row("left of top right", 237, 61, Qt::SizeAllCursor);
    row("right of top right", 250, 50, Stage::noCursor);
    row("left, first", 50, 144, Qt::SizeHorCursor);
    row("left, last", 61, 155, Qt::SizeHorCursor);
    row("above left", 50, 143, Qt::SizeAllCursor);
    row("below left", 50, 156, Qt::SizeAllCursor);
    row("right, first", 238, 144, Qt::SizeHorCursor);
    row("right, last", 249, 155, Qt::SizeHorCursor);
    row("left of right", 237, 150, Qt::SizeAllCursor);
    row("bottom left, first", 50, 238, Qt::SizeBDiagCursor);
    row("bottom left, last", 61, 249, Qt::SizeBDiagCursor);
    row("above bottom left", 50, 237, Qt::SizeAllCursor);
    row("below bottom left", 50, 250, Stage::noCursor);
    row("bottom, first", 144, 238, Qt::SizeVerCursor);
    row("bottom, last", 155, 249, Qt::SizeVerCursor);
    row("above bottom", 150, 237, Qt::SizeAllCursor);
    row("bottom right, first", 238, 238, Qt::SizeFDiagCursor);
    row("bottom right, last", 249, 249, Qt::SizeFDiagCursor);
    row("above left of bottom right", 237, 237, Qt::SizeAllCursor);
    row("centre", 150, 150, Qt::SizeAllCursor);
    row("image beside the selection", 20, 150, Stage::noCursor);
    row("beside the image", 20, 20, Stage::noCursor);
}

void IconSelectWidgetCursorTest::showsCursor()
{
    QFETCH(QPoint, position);
    QFETCH(int, expected);

    Stage stage(QSize(300, 300), patterned(QSize(150, 100)));
    QCOMPARE(stage.widget.selection(), edges(50, 50, 249, 249));

    stage.widget.setCursor(Qt::ForbiddenCursor);
    stage.move(position);
    QCOMPARE(stage.cursor(), expected);
}

void IconSelectWidgetCursorTest::roundsMousePositions_data()
{
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<int>("expected");

    QTest::newRow("to the last pixel of the grip") << QPointF(11.49, 11.49) << int(Qt::SizeFDiagCursor);
    QTest::newRow("half a pixel, upward") << QPointF(11.5, 11) << int(Qt::SizeAllCursor);
    QTest::newRow("half a pixel, downward in y") << QPointF(11, 11.5) << int(Qt::SizeAllCursor);
    QTest::newRow("minus half a pixel is 0") << QPointF(-0.5, -0.5) << int(Qt::SizeFDiagCursor);
    QTest::newRow("a little more is -1") << QPointF(-0.51, 0) << Stage::noCursor;
}

void IconSelectWidgetCursorTest::roundsMousePositions()
{
    QFETCH(QPointF, position);
    QFETCH(int, expected);

    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    QMouseEvent event(QEvent::MouseMove, position, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&stage.widget, &event);
    QCOMPARE(stage.cursor(), expected);
}

void IconSelectWidgetCursorTest::findsFirstHandleInHashOrder()
{
    // In such a small image all grips overlap in the middle. The selection after each grip was dragged there:
    const QRect start = edges(0, 0, 19, 19);
    const QRect dragged[] = {
        start,
        start,
        start,
        start,
        edges(0, 0, 20, 19),
        start,
        edges(0, 0, 19, 20),
        edges(0, 0, 40, 40),
    };
    const Qt::CursorShape cursors[] = {
        Qt::SizeFDiagCursor,
        Qt::SizeVerCursor,
        Qt::SizeBDiagCursor,
        Qt::SizeHorCursor,
        Qt::SizeHorCursor,
        Qt::SizeBDiagCursor,
        Qt::SizeVerCursor,
        Qt::SizeFDiagCursor,
    };
    const QImage image = patterned(QSize(20, 20));
    const QPoint middle(10, 10);
    Stage stage(QSize(20, 20));
    for (int i = 0; i < 100; ++i) {
        qSetGlobalQHashSeed(-1); // another order
        stage.widget.setImage(image);
        QCOMPARE(stage.widget.selection(), start);
        for (const QRect &handle : stage.widget.handles()) {
            QVERIFY(handle.contains(middle));
        }
        const int first = stage.widget.handles().cbegin().key();

        stage.move(QPoint(-5, -5));
        QCOMPARE(stage.cursor(), Stage::noCursor);
        stage.move(middle);
        QCOMPARE(stage.cursor(), int(cursors[first]));
        stage.press(middle);
        stage.move(middle + QPoint(1, 1));
        QCOMPARE(stage.widget.selection(), dragged[first]);
        stage.release(middle);
    }
}

void IconSelectWidgetCursorTest::unsetsCursorOnRelease()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.move(QPoint(150, 150));
    QCOMPARE(stage.cursor(), int(Qt::SizeAllCursor));

    stage.press(QPoint(150, 150));
    QCOMPARE(stage.cursor(), int(Qt::SizeAllCursor));
    stage.release(QPoint(150, 150));
    QCOMPARE(stage.cursor(), Stage::noCursor);
}

void IconSelectWidgetCursorTest::keepsCursorDuringDrag()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.move(QPoint(299, 299));
    stage.press(QPoint(299, 299));
    stage.move(QPoint(150, 150));
    QCOMPARE(stage.cursor(), int(Qt::SizeFDiagCursor));
    stage.move(QPoint(50, 50));
    QCOMPARE(stage.cursor(), int(Qt::SizeFDiagCursor));
}

QTEST_MAIN(IconSelectWidgetCursorTest)

#include "iconselectwidgetcursortest.moc"
