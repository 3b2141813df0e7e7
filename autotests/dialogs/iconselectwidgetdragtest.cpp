/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "edges.h"
#include "iconselectstage.h"

#include <QMouseEvent>
#include <QTest>

#include <limits>

class IconSelectWidgetDragTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void movesSelection();
    void stopsMovedSelectionOnePixelShort();
    void movesSelectionToFarthestPlaces_data();
    void movesSelectionToFarthestPlaces();
    void resizesSelection_data();
    void resizesSelection();
    void holdsOneHandleAtATime();
    void resizesAfterHoveringOverSelection();
    void ignoresGrowthWithoutRoom();
    void repaintsAfterEachChange();
    void ignoresPressOutsideSelection();
    void acceptsAnyButton();
    void treatsDoubleClickAsPress();
};

void IconSelectWidgetDragTest::movesSelection()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.drag(QPoint(299, 299), QPoint(99, 99));
    QCOMPARE(stage.widget.selection(), edges(0, 0, 99, 99));

    stage.press(QPoint(30, 40));
    QCOMPARE(stage.widget.selection(), edges(0, 0, 99, 99));
    stage.move(QPoint(50, 90));
    QCOMPARE(stage.widget.selection(), edges(20, 50, 119, 149));
    QCOMPARE(stage.widget.handles().value(0), edges(20, 50, 31, 61));
    QCOMPARE(stage.widget.handles().value(7), edges(108, 138, 119, 149));

    // The mouse keeps hold of the same point of the selection, even after leaving the image.
    stage.move(QPoint(-200, -200));
    QCOMPARE(stage.widget.selection(), edges(0, 0, 99, 99));
    stage.move(QPoint(31, 41));
    QCOMPARE(stage.widget.selection(), edges(1, 1, 100, 100));
    stage.release(QPoint(31, 41));
    QCOMPARE(stage.widget.selection(), edges(1, 1, 100, 100));
}

void IconSelectWidgetDragTest::stopsMovedSelectionOnePixelShort()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.drag(QPoint(299, 299), QPoint(99, 99));
    stage.drag(QPoint(50, 50), QPoint(290, 290));
    QCOMPARE(stage.widget.selection(), edges(199, 199, 298, 298));

    stage.drag(QPoint(250, 250), QPoint(0, 0));
    QCOMPARE(stage.widget.selection(), edges(0, 0, 99, 99));
}

void IconSelectWidgetDragTest::movesSelectionToFarthestPlaces_data()
{
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QRect>("expected");

    const int lowest = std::numeric_limits<int>::min();
    const int highest = std::numeric_limits<int>::max() - 100; // the window counts from farther away
    QTest::newRow("left") << QPoint(lowest, 150) << edges(0, 100, 99, 199);
    QTest::newRow("right") << QPoint(highest, 150) << edges(199, 100, 298, 199);
    QTest::newRow("top") << QPoint(150, lowest) << edges(100, 0, 199, 99);
    QTest::newRow("bottom") << QPoint(150, highest) << edges(100, 199, 199, 298);
}

void IconSelectWidgetDragTest::movesSelectionToFarthestPlaces()
{
    QFETCH(QPoint, to);

    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.drag(QPoint(299, 299), QPoint(99, 99));
    stage.drag(QPoint(50, 50), QPoint(150, 150));
    QCOMPARE(stage.widget.selection(), edges(100, 100, 199, 199));

    stage.press(QPoint(150, 150));
    stage.move(to);
    QTEST(stage.widget.selection(), "expected");
}

void IconSelectWidgetDragTest::resizesSelection_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QRect>("expected");

    // The selection is (100, 100) to (199, 199). The corner or edge moves to the mouse, not the grabbed pixel of
    // the grip.
    QTest::newRow("top left") << QPoint(105, 105) << QPoint(90, 80) << edges(90, 90, 199, 199);
    QTest::newRow("top") << QPoint(150, 105) << QPoint(0, 80) << edges(90, 80, 209, 199);
    QTest::newRow("top right") << QPoint(190, 105) << QPoint(230, 80) << edges(100, 80, 219, 199);
    QTest::newRow("left") << QPoint(105, 150) << QPoint(120, 0) << edges(120, 110, 199, 189);
    QTest::newRow("right") << QPoint(190, 150) << QPoint(179, 0) << edges(100, 110, 179, 189);
    QTest::newRow("bottom left") << QPoint(105, 190) << QPoint(300, 300) << edges(159, 100, 199, 140);
    QTest::newRow("bottom") << QPoint(150, 190) << QPoint(0, 219) << edges(90, 100, 209, 219);
    QTest::newRow("bottom right") << QPoint(190, 190) << QPoint(500, 500) << edges(100, 100, 299, 299);
    QTest::newRow("top, below the bottom") << QPoint(150, 105) << QPoint(0, 500) << edges(179, 259, 120, 199);
}

void IconSelectWidgetDragTest::resizesSelection()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(QRect, expected);

    Stage stage(QSize(300, 300), patterned(QSize(600, 600)));
    stage.drag(QPoint(299, 299), QPoint(99, 99));
    stage.drag(QPoint(50, 50), QPoint(150, 150));
    QCOMPARE(stage.widget.selection(), edges(100, 100, 199, 199));

    stage.press(from);
    QCOMPARE(stage.widget.selection(), edges(100, 100, 199, 199));
    stage.move(to);
    QCOMPARE(stage.widget.selection(), expected);
    stage.release(to);
    QCOMPARE(stage.widget.selection(), expected);

    stage.move(QPoint(150, 150));
    QCOMPARE(stage.widget.selection(), expected);
}

void IconSelectWidgetDragTest::holdsOneHandleAtATime()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.press(QPoint(299, 299));
    stage.move(QPoint(199, 199));
    // The mouse crosses other grips and the selection.
    stage.move(QPoint(5, 5));
    stage.move(QPoint(60, 60));
    QCOMPARE(stage.widget.selection(), edges(0, 0, 60, 60));
    stage.release(QPoint(60, 60));
}

void IconSelectWidgetDragTest::resizesAfterHoveringOverSelection()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.move(QPoint(150, 150));
    stage.drag(QPoint(299, 299), QPoint(99, 99));
    QCOMPARE(stage.widget.selection(), edges(0, 0, 99, 99));
}

void IconSelectWidgetDragTest::ignoresGrowthWithoutRoom()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 200)));
    QCOMPARE(stage.widget.selection(), edges(50, 50, 249, 249));
    stage.press(QPoint(245, 150));
    PaintWatcher watcher(&stage.widget);

    stage.move(QPoint(260, 150));
    QCOMPARE(stage.widget.selection(), edges(50, 50, 249, 249));
    QVERIFY(!watcher.isPainted());

    // A step that changes nothing still repaints.
    stage.move(QPoint(249, 150));
    QVERIFY(watcher.waitForPaint());
    QCOMPARE(stage.widget.selection(), edges(50, 50, 249, 249));
}

void IconSelectWidgetDragTest::repaintsAfterEachChange()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.press(QPoint(299, 299));
    PaintWatcher watcher(&stage.widget);

    stage.move(QPoint(199, 199));
    QVERIFY(watcher.waitForPaint());
    stage.release(QPoint(199, 199));
    QVERIFY(!watcher.isPainted());

    stage.press(QPoint(100, 100));
    stage.move(QPoint(110, 110));
    QVERIFY(watcher.waitForPaint());
    stage.release(QPoint(110, 110));

    stage.widget.setImage(patterned(QSize(100, 100)));
    QVERIFY(watcher.waitForPaint());
    for (const auto slot : {&IconSelectWidget::selectAll,
                            &IconSelectWidget::rotateClockwise,
                            &IconSelectWidget::rotateCounterClockwise,
                            &IconSelectWidget::horizontalMirror,
                            &IconSelectWidget::verticalMirror}) {
        (stage.widget.*slot)();
        QVERIFY(watcher.waitForPaint());
    }
}

void IconSelectWidgetDragTest::ignoresPressOutsideSelection()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 200)));
    const QRect selection = stage.widget.selection();

    stage.press(QPoint(20, 150));
    stage.move(QPoint(150, 150));
    QCOMPARE(stage.widget.selection(), selection);
    QCOMPARE(stage.cursor(), int(Qt::SizeAllCursor));
    // No button is down on the selection, so a resize resets it.
    stage.widget.resize(150, 150);
    QCOMPARE(stage.widget.selection(), edges(25, 25, 124, 124));
    stage.release(QPoint(150, 150));
    QCOMPARE(stage.cursor(), Stage::noCursor);
}

void IconSelectWidgetDragTest::acceptsAnyButton()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.press(QPoint(299, 299), Qt::RightButton);
    stage.move(QPoint(99, 99));
    stage.release(QPoint(99, 99), Qt::RightButton);
    QCOMPARE(stage.widget.selection(), edges(0, 0, 99, 99));

    // The release of one button ends the drag of another.
    stage.press(QPoint(50, 50));
    stage.press(QPoint(50, 50), Qt::MiddleButton);
    stage.release(QPoint(50, 50), Qt::MiddleButton);
    stage.move(QPoint(60, 60));
    QCOMPARE(stage.widget.selection(), edges(0, 0, 99, 99));
    stage.release(QPoint(60, 60));
}

void IconSelectWidgetDragTest::treatsDoubleClickAsPress()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    QMouseEvent event(QEvent::MouseButtonDblClick, QPointF(299, 299), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&stage.widget, &event);
    stage.move(QPoint(99, 99));
    QCOMPARE(stage.widget.selection(), edges(0, 0, 99, 99));
}

QTEST_MAIN(IconSelectWidgetDragTest)

#include "iconselectwidgetdragtest.moc"
