/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "edges.h"
#include "iconselectstage.h"

#include <QTest>

class IconSelectWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty();
    void doesNothingWithoutImage();
    void selectsLargestCentredSquareOfNewImage();
    void resetsSelectionOnResize();
    void keepsSelectionWhileHeld();
    void selectsNothingInImageSetWhileHeld();
    void runsOnStaleRectanglesAfterNullImage();
    void resetsSelectionOnEachSlot_data();
    void resetsSelectionOnEachSlot();
    void turnsAndMirrorsExactly_data();
    void turnsAndMirrorsExactly();
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

    // The drag continues in the new rectangle. Its end does not change the selection.
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

void IconSelectWidgetTest::turnsAndMirrorsExactly_data()
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

void IconSelectWidgetTest::turnsAndMirrorsExactly()
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
