/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "iconselectstage.h"

#include <QMouseEvent>
#include <QTest>

namespace
{
QRect edges(int left, int top, int right, int bottom)
{
    return {QPoint(left, top), QPoint(right, bottom)};
}

class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QObject *watched)
    {
        watched->installEventFilter(this);
    }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        m_count += event->type() == QEvent::Paint;
        return false;
    }

    int count() const
    {
        return m_count;
    }

private:
    int m_count = 0;
};

}

class IconSelectWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty();
    void doesNothingWithoutImage();
    void selectsLargestCentredSquareOfNewImage();
    void showsCursor_data();
    void showsCursor();
    void roundsMousePositions_data();
    void roundsMousePositions();
    void findsFirstHandleInHashOrder();
    void unsetsCursorOnRelease();
    void keepsCursorDuringDrag();
    void movesSelection();
    void stopsMovedSelectionOnePixelShort();
    void resizesSelection_data();
    void resizesSelection();
    void holdsOneHandleAtATime();
    void resizesAfterHoveringOverSelection();
    void ignoresAndNotRepaintGrowthWithoutRoom();
    void repaintsEachStepOfADrag();
    void ignoresPressOutsideSelection();
    void acceptsAnyButton();
    void treatsDoubleClickAsPress();
    void resetsSelectionOnResize();
    void keepsSelectionWhileHeld();
    void selectsNothingInImageSetWhileHeld();
    void runsOnStaleRectanglesAfterNullImage();
    void resetsSelectionOnEachSlot_data();
    void resetsSelectionOnEachSlot();
    void turnsAndMirrorExactly_data();
    void turnsAndMirrorExactly();
    void selectsInImagePixels();
};

void IconSelectWidgetTest::startsEmpty()
{
    const IconSelectWidget widget;

    QVERIFY(widget.image().isNull());
    QCOMPARE(widget.imageRect(), QRect());
    QCOMPARE(widget.selection(), QRect());
    QVERIFY(widget.handles().isEmpty());
    QVERIFY(widget.testAttribute(Qt::WA_MouseTracking));
    QCOMPARE(widget.sizeHint(), QSize(-1, -1));
    QCOMPARE(widget.minimumSizeHint(), QSize(-1, -1));
    QVERIFY(widget.image().copy(widget.imageSelection()).isNull());
}

void IconSelectWidgetTest::doesNothingWithoutImage()
{
    Stage stage(QSize(300, 200));

    stage.move(QPoint(0, 0));
    QCOMPARE(stage.cursor(), Stage::noCursor);
    stage.drag(QPoint(0, 0), QPoint(50, 50));
    stage.widget.resize(200, 300);
    stage.widget.rotateClockwise();
    stage.widget.rotateCounterClockwise();
    stage.widget.horizontalMirror();
    stage.widget.verticalMirror();
    stage.widget.selectAll();
    stage.widget.setImage(QImage());

    QVERIFY(stage.widget.image().isNull());
    QCOMPARE(stage.widget.imageRect(), QRect());
    QCOMPARE(stage.widget.selection(), QRect());
    QVERIFY(stage.widget.handles().isEmpty());
}

void IconSelectWidgetTest::selectsLargestCentredSquareOfNewImage()
{
    Stage stage(QSize(300, 200), patterned(QSize(600, 200)));
    QCOMPARE(stage.widget.imageRect(), QRect(0, 50, 300, 100));
    QCOMPARE(stage.widget.selection(), QRect(100, 50, 100, 100));

    stage.widget.setImage(patterned(QSize(200, 600)));
    QCOMPARE(stage.widget.imageRect(), QRect(117, 0, 66, 200));
    QCOMPARE(stage.widget.selection(), QRect(117, 67, 66, 66));

    stage.widget.setImage(patterned(QSize(50, 50)));
    QCOMPARE(stage.widget.imageRect(), QRect(50, 0, 200, 200));
    QCOMPARE(stage.widget.selection(), stage.widget.imageRect());
}

void IconSelectWidgetTest::showsCursor_data()
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

void IconSelectWidgetTest::showsCursor()
{
    QFETCH(QPoint, position);
    QFETCH(int, expected);

    Stage stage(QSize(300, 300), patterned(QSize(150, 100)));
    QCOMPARE(stage.widget.selection(), edges(50, 50, 249, 249));

    stage.widget.setCursor(Qt::ForbiddenCursor);
    stage.move(position);
    QCOMPARE(stage.cursor(), expected);
}

void IconSelectWidgetTest::roundsMousePositions_data()
{
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<int>("expected");

    QTest::newRow("to the last pixel of the grip") << QPointF(11.49, 11.49) << int(Qt::SizeFDiagCursor);
    QTest::newRow("half a pixel, upward") << QPointF(11.5, 11) << int(Qt::SizeAllCursor);
    QTest::newRow("half a pixel, downward in y") << QPointF(11, 11.5) << int(Qt::SizeAllCursor);
    QTest::newRow("minus half a pixel is 0") << QPointF(-0.5, -0.5) << int(Qt::SizeFDiagCursor);
    QTest::newRow("a little more is -1") << QPointF(-0.51, 0) << Stage::noCursor;
}

void IconSelectWidgetTest::roundsMousePositions()
{
    QFETCH(QPointF, position);
    QFETCH(int, expected);

    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    QMouseEvent event(QEvent::MouseMove, position, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&stage.widget, &event);
    QCOMPARE(stage.cursor(), expected);
}

void IconSelectWidgetTest::findsFirstHandleInHashOrder()
{
    // In so small an image all grips overlap in the middle. Where each goes when it is dragged there:
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

void IconSelectWidgetTest::unsetsCursorOnRelease()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.move(QPoint(150, 150));
    QCOMPARE(stage.cursor(), int(Qt::SizeAllCursor));

    stage.press(QPoint(150, 150));
    QCOMPARE(stage.cursor(), int(Qt::SizeAllCursor));
    stage.release(QPoint(150, 150));
    QCOMPARE(stage.cursor(), Stage::noCursor);
}

void IconSelectWidgetTest::keepsCursorDuringDrag()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.move(QPoint(299, 299));
    stage.press(QPoint(299, 299));
    stage.move(QPoint(150, 150));
    QCOMPARE(stage.cursor(), int(Qt::SizeFDiagCursor));
    stage.move(QPoint(50, 50));
    QCOMPARE(stage.cursor(), int(Qt::SizeFDiagCursor));
}

void IconSelectWidgetTest::movesSelection()
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

    // The place where the selection was grabbed stays under the mouse, also after leaving the image.
    stage.move(QPoint(-200, -200));
    QCOMPARE(stage.widget.selection(), edges(0, 0, 99, 99));
    stage.move(QPoint(31, 41));
    QCOMPARE(stage.widget.selection(), edges(1, 1, 100, 100));
    stage.release(QPoint(31, 41));
    QCOMPARE(stage.widget.selection(), edges(1, 1, 100, 100));
}

void IconSelectWidgetTest::stopsMovedSelectionOnePixelShort()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.drag(QPoint(299, 299), QPoint(99, 99));
    stage.drag(QPoint(50, 50), QPoint(290, 290));
    QCOMPARE(stage.widget.selection(), edges(199, 199, 298, 298));

    stage.drag(QPoint(250, 250), QPoint(0, 0));
    QCOMPARE(stage.widget.selection(), edges(0, 0, 99, 99));
}

void IconSelectWidgetTest::resizesSelection_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QRect>("expected");

    // The selection is (100, 100) to (199, 199). Not the grabbed pixel of the grip but its corner or
    // edge goes to the mouse.
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

void IconSelectWidgetTest::resizesSelection()
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

void IconSelectWidgetTest::holdsOneHandleAtATime()
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

void IconSelectWidgetTest::resizesAfterHoveringOverSelection()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.move(QPoint(150, 150));
    stage.drag(QPoint(299, 299), QPoint(99, 99));
    QCOMPARE(stage.widget.selection(), edges(0, 0, 99, 99));
}

void IconSelectWidgetTest::ignoresAndNotRepaintGrowthWithoutRoom()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 200)));
    QCOMPARE(stage.widget.selection(), edges(50, 50, 249, 249));
    stage.press(QPoint(245, 150));
    QTest::qWait(100);
    const PaintCounter paints(&stage.widget);

    stage.move(QPoint(260, 150));
    QTest::qWait(100);
    QCOMPARE(stage.widget.selection(), edges(50, 50, 249, 249));
    QCOMPARE(paints.count(), 0);

    // A step that changes nothing is not ignored.
    stage.move(QPoint(249, 150));
    QTRY_VERIFY(paints.count() > 0);
    QCOMPARE(stage.widget.selection(), edges(50, 50, 249, 249));
}

void IconSelectWidgetTest::repaintsEachStepOfADrag()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.press(QPoint(299, 299));
    QTest::qWait(100);
    const PaintCounter paints(&stage.widget);

    stage.move(QPoint(199, 199));
    QTRY_COMPARE(paints.count(), 1);
    stage.release(QPoint(199, 199));
    QTest::qWait(100);
    QCOMPARE(paints.count(), 1);

    stage.press(QPoint(100, 100));
    stage.move(QPoint(110, 110));
    QTRY_COMPARE(paints.count(), 2);
    stage.release(QPoint(110, 110));

    stage.widget.setImage(patterned(QSize(100, 100)));
    QTRY_COMPARE(paints.count(), 3);
    stage.widget.selectAll();
    QTRY_COMPARE(paints.count(), 4);
    stage.widget.rotateClockwise();
    QTRY_COMPARE(paints.count(), 5);
    stage.widget.rotateCounterClockwise();
    QTRY_COMPARE(paints.count(), 6);
    stage.widget.horizontalMirror();
    QTRY_COMPARE(paints.count(), 7);
    stage.widget.verticalMirror();
    QTRY_COMPARE(paints.count(), 8);
}

void IconSelectWidgetTest::ignoresPressOutsideSelection()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 200)));
    const QRect selection = stage.widget.selection();

    stage.press(QPoint(20, 150));
    stage.move(QPoint(150, 150));
    QCOMPARE(stage.widget.selection(), selection);
    QCOMPARE(stage.cursor(), int(Qt::SizeAllCursor));
    // Nothing is held, so a resize resets the selection.
    stage.widget.resize(150, 150);
    QCOMPARE(stage.widget.selection(), edges(25, 25, 124, 124));
    stage.release(QPoint(150, 150));
    QCOMPARE(stage.cursor(), Stage::noCursor);
}

void IconSelectWidgetTest::acceptsAnyButton()
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

void IconSelectWidgetTest::treatsDoubleClickAsPress()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    QMouseEvent event(QEvent::MouseButtonDblClick, QPointF(299, 299), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&stage.widget, &event);
    stage.move(QPoint(99, 99));
    QCOMPARE(stage.widget.selection(), edges(0, 0, 99, 99));
}

void IconSelectWidgetTest::resetsSelectionOnResize()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.drag(QPoint(299, 299), QPoint(99, 99));

    stage.widget.resize(400, 200);
    QCOMPARE(stage.widget.imageRect(), edges(100, 0, 299, 199));
    QCOMPARE(stage.widget.selection(), edges(100, 0, 299, 199));
    QCOMPARE(stage.widget.handles().value(7), edges(288, 188, 299, 199));
}

void IconSelectWidgetTest::keepsSelectionWhileHeld()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 200)));
    stage.press(QPoint(55, 55));
    stage.move(QPoint(150, 150));
    const QRect selection = edges(150, 150, 249, 249);
    QCOMPARE(stage.widget.selection(), selection);

    stage.widget.resize(200, 400);
    QCOMPARE(stage.widget.imageRect(), edges(0, 133, 199, 265));
    QCOMPARE(stage.widget.selection(), selection);
    stage.widget.rotateClockwise();
    QCOMPARE(stage.widget.imageRect(), edges(0, 50, 199, 349));
    stage.widget.selectAll();
    stage.widget.horizontalMirror();
    QCOMPARE(stage.widget.selection(), selection);
    QCOMPARE(stage.widget.handles().value(0), edges(150, 150, 161, 161));

    // The drag goes on in the new rectangle, and its end leaves the selection alone.
    stage.move(QPoint(-10, -10));
    QCOMPARE(stage.widget.selection(), edges(50, 50, 249, 249));
    stage.release(QPoint(-10, -10));
    QCOMPARE(stage.widget.selection(), edges(50, 50, 249, 249));
    stage.widget.selectAll();
    QCOMPARE(stage.widget.selection(), edges(0, 100, 199, 299));
}

void IconSelectWidgetTest::selectsNothingInImageSetWhileHeld()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    stage.press(QPoint(150, 150));
    stage.widget.setImage(patterned(QSize(300, 200)));
    QCOMPARE(stage.widget.imageRect(), edges(0, 50, 299, 249));
    QCOMPARE(stage.widget.selection(), QRect());
    QCOMPARE(stage.widget.handles().value(0), edges(0, 0, 11, 11));

    stage.release(QPoint(150, 150));
    QCOMPARE(stage.widget.selection(), QRect());
    stage.widget.selectAll();
    QCOMPARE(stage.widget.selection(), edges(50, 50, 249, 249));
}

void IconSelectWidgetTest::runsOnStaleRectanglesAfterNullImage()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 300)));
    const QHash<int, QRect> handles = stage.widget.handles();

    stage.widget.setImage(QImage());
    QCOMPARE(stage.widget.imageRect(), edges(0, 0, 299, 299));
    QCOMPARE(stage.widget.selection(), QRect());
    QCOMPARE(stage.widget.handles(), handles);

    stage.move(QPoint(299, 299));
    QCOMPARE(stage.cursor(), int(Qt::SizeFDiagCursor));
    stage.drag(QPoint(299, 299), QPoint(99, 99));
    QCOMPARE(stage.widget.selection(), edges(0, 0, 99, 99));
    QCOMPARE(stage.widget.handles(), handles);
    QVERIFY(stage.widget.image().copy(stage.widget.imageSelection()).isNull());
}

void IconSelectWidgetTest::resetsSelectionOnEachSlot_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QRect>("expected");

    QTest::newRow("rotateClockwise") << QByteArray("rotateClockwise") << edges(50, 50, 249, 249);
    QTest::newRow("rotateCounterClockwise") << QByteArray("rotateCounterClockwise") << edges(50, 50, 249, 249);
    QTest::newRow("horizontalMirror") << QByteArray("horizontalMirror") << edges(50, 50, 249, 249);
    QTest::newRow("verticalMirror") << QByteArray("verticalMirror") << edges(50, 50, 249, 249);
    QTest::newRow("selectAll") << QByteArray("selectAll") << edges(50, 50, 249, 249);
}

void IconSelectWidgetTest::resetsSelectionOnEachSlot()
{
    QFETCH(QByteArray, slot);
    QFETCH(QRect, expected);

    Stage stage(QSize(300, 300), patterned(QSize(300, 200)));
    stage.drag(QPoint(249, 249), QPoint(149, 149));
    QCOMPARE(stage.widget.selection(), edges(50, 50, 149, 149));

    QVERIFY(QMetaObject::invokeMethod(&stage.widget, slot.constData()));
    QCOMPARE(stage.widget.selection(), expected);
    const bool turned = slot.startsWith("rotate");
    QCOMPARE(stage.widget.imageRect(), turned ? edges(50, 0, 249, 299) : edges(0, 50, 299, 249));
}

void IconSelectWidgetTest::turnsAndMirrorExactly_data()
{
    QTest::addColumn<QImage::Format>("format");

    QTest::newRow("32 bits") << QImage::Format_RGB32;
    QTest::newRow("32 bits with alpha") << QImage::Format_ARGB32;
    QTest::newRow("32 bits, premultiplied") << QImage::Format_ARGB32_Premultiplied;
    QTest::newRow("24 bits") << QImage::Format_RGB888;
    QTest::newRow("16 bits") << QImage::Format_RGB16;
    QTest::newRow("grey") << QImage::Format_Grayscale8;
    QTest::newRow("palette") << QImage::Format_Indexed8;
    QTest::newRow("black and white") << QImage::Format_Mono;
}

void IconSelectWidgetTest::turnsAndMirrorExactly()
{
    QFETCH(QImage::Format, format);

    const QSize size(37, 22);
    const int right = size.width() - 1;
    const int bottom = size.height() - 1;
    const QImage source = patterned(size, format);
    IconSelectWidget widget;

    widget.setImage(source);
    widget.rotateClockwise();
    QCOMPARE(widget.image().size(), size.transposed());
    for (int y = 0; y <= bottom; ++y) {
        for (int x = 0; x <= right; ++x) {
            QCOMPARE(widget.image().pixel(bottom - y, x), source.pixel(x, y));
        }
    }
    widget.setImage(source);
    widget.rotateCounterClockwise();
    QCOMPARE(widget.image().size(), size.transposed());
    for (int y = 0; y <= bottom; ++y) {
        for (int x = 0; x <= right; ++x) {
            QCOMPARE(widget.image().pixel(y, right - x), source.pixel(x, y));
        }
    }
    widget.setImage(source);
    widget.horizontalMirror();
    QCOMPARE(widget.image().size(), size);
    for (int y = 0; y <= bottom; ++y) {
        for (int x = 0; x <= right; ++x) {
            QCOMPARE(widget.image().pixel(right - x, y), source.pixel(x, y));
        }
    }
    widget.setImage(source);
    widget.verticalMirror();
    QCOMPARE(widget.image().size(), size);
    for (int y = 0; y <= bottom; ++y) {
        for (int x = 0; x <= right; ++x) {
            QCOMPARE(widget.image().pixel(x, bottom - y), source.pixel(x, y));
        }
    }
}

void IconSelectWidgetTest::selectsInImagePixels()
{
    Stage stage(QSize(300, 300), patterned(QSize(600, 400)));
    QCOMPARE(stage.widget.imageSelection(), QRect(100, 0, 400, 400));

    stage.drag(QPoint(249, 249), QPoint(149, 149));
    QCOMPARE(stage.widget.imageSelection(), QRect(100, 0, 200, 200));
    stage.drag(QPoint(100, 100), QPoint(0, 110));
    QCOMPARE(stage.widget.imageSelection(), QRect(0, 20, 200, 200));
}

QTEST_MAIN(IconSelectWidgetTest)

#include "iconselectwidgettest.moc"
