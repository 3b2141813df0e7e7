/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "selectiongeometry_p.h"

#include <QTest>

using SelectionGeometry::centredSquare;
using SelectionGeometry::handleCursors;
using SelectionGeometry::handles;
using SelectionGeometry::imageRect;
using SelectionGeometry::inImagePixels;
using SelectionGeometry::moved;
using SelectionGeometry::resized;

namespace
{
QRect edges(int left, int top, int right, int bottom)
{
    return {QPoint(left, top), QPoint(right, bottom)};
}

/** What a drag gives that changes nothing. No drag leads to a null rectangle. */
QRect ignored()
{
    return {};
}
}

class SelectionGeometryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fitsImageIntoWidget_data();
    void fitsImageIntoWidget();
    void findsLargestCentredSquare_data();
    void findsLargestCentredSquare();
    void putsHandlesAroundSelection_data();
    void putsHandlesAroundSelection();
    void numbersEightHandlesAndCursors();
    void movesInsideImage_data();
    void movesInsideImage();
    void dragsHandle_data();
    void dragsHandle();
    void dragsHandleOfImageSmallerThanSmallestSpan_data();
    void dragsHandleOfImageSmallerThanSmallestSpan();
    void scalesSelectionToImagePixels_data();
    void scalesSelectionToImagePixels();
};

void SelectionGeometryTest::fitsImageIntoWidget_data()
{
    QTest::addColumn<QSize>("image");
    QTest::addColumn<QSize>("widget");
    QTest::addColumn<QRect>("expected");

    QTest::newRow("same size") << QSize(300, 200) << QSize(300, 200) << QRect(0, 0, 300, 200);
    QTest::newRow("wide, halved") << QSize(600, 200) << QSize(300, 300) << QRect(0, 100, 300, 100);
    QTest::newRow("tall, halved") << QSize(200, 600) << QSize(300, 300) << QRect(100, 0, 100, 300);
    QTest::newRow("enlarged") << QSize(3, 2) << QSize(300, 300) << QRect(0, 50, 300, 200);
    QTest::newRow("odd margins are cut") << QSize(100, 50) << QSize(100, 101) << QRect(0, 25, 100, 50);
    QTest::newRow("height is cut, not rounded") << QSize(100, 66) << QSize(50, 99) << QRect(0, 33, 50, 33);
    QTest::newRow("height of 33.9 is 33") << QSize(100, 113) << QSize(30, 50) << QRect(0, 8, 30, 33);
    // In double precision 49 * (1 / 49) is less than 1, and 61 * (250 / 61) less than 250.
    QTest::newRow("49 times a 49th is 0") << QSize(49, 49) << QSize(1, 1) << QRect(0, 0, 0, 0);
    QTest::newRow("61 times 250 61ths is 249") << QSize(61, 61) << QSize(250, 250) << QRect(0, 0, 249, 249);
    QTest::newRow("one pixel") << QSize(1, 1) << QSize(250, 300) << QRect(0, 25, 250, 250);
    QTest::newRow("one column is too thin to be seen") << QSize(1, 10000) << QSize(100, 100) << QRect(50, 0, 0, 100);
    QTest::newRow("one row is too thin to be seen") << QSize(10000, 1) << QSize(100, 99) << QRect(0, 49, 100, 0);
    QTest::newRow("24 megapixels") << QSize(6000, 4000) << QSize(440, 360) << QRect(0, 33, 440, 293);
    QTest::newRow("no widget") << QSize(100, 100) << QSize(0, 0) << QRect(0, 0, 0, 0);
    QTest::newRow("widget without height") << QSize(100, 100) << QSize(101, 0) << QRect(50, 0, 0, 0);
}

void SelectionGeometryTest::fitsImageIntoWidget()
{
    QFETCH(QSize, image);
    QFETCH(QSize, widget);
    QFETCH(QRect, expected);

    QCOMPARE(imageRect(image, widget), expected);
}

void SelectionGeometryTest::findsLargestCentredSquare_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("expected");

    QTest::newRow("square") << QRect(5, 6, 100, 100) << QRect(5, 6, 100, 100);
    QTest::newRow("wide") << QRect(5, 6, 200, 100) << QRect(55, 6, 100, 100);
    QTest::newRow("tall") << QRect(5, 6, 100, 200) << QRect(5, 56, 100, 100);
    QTest::newRow("odd rest, wide") << QRect(0, 0, 103, 100) << QRect(1, 0, 100, 100);
    QTest::newRow("odd rest, tall") << QRect(0, 0, 100, 103) << QRect(0, 1, 100, 100);
    QTest::newRow("one pixel") << QRect(7, 8, 1, 1) << QRect(7, 8, 1, 1);
    QTest::newRow("no width") << QRect(50, 0, 0, 100) << QRect(50, 50, 0, 0);
    QTest::newRow("no height") << QRect(0, 49, 100, 0) << QRect(50, 49, 0, 0);
}

void SelectionGeometryTest::findsLargestCentredSquare()
{
    QFETCH(QRect, rect);
    QFETCH(QRect, expected);

    QCOMPARE(centredSquare(rect), expected);
}

void SelectionGeometryTest::putsHandlesAroundSelection_data()
{
    QTest::addColumn<QRect>("selection");
    QTest::addColumn<QVector<QRect>>("expected");

    QTest::newRow("even sides") << edges(100, 200, 199, 299)
                                << QVector<QRect>{edges(100, 200, 111, 211),
                                                  edges(144, 200, 155, 211),
                                                  edges(188, 200, 199, 211),
                                                  edges(100, 244, 111, 255),
                                                  edges(188, 244, 199, 255),
                                                  edges(100, 288, 111, 299),
                                                  edges(144, 288, 155, 299),
                                                  edges(188, 288, 199, 299)};
    QTest::newRow("odd sides") << edges(100, 200, 200, 300)
                               << QVector<QRect>{edges(100, 200, 111, 211),
                                                 edges(144, 200, 155, 211),
                                                 edges(189, 200, 200, 211),
                                                 edges(100, 244, 111, 255),
                                                 edges(189, 244, 200, 255),
                                                 edges(100, 289, 111, 300),
                                                 edges(144, 289, 155, 300),
                                                 edges(189, 289, 200, 300)};
    QTest::newRow("one pixel") << edges(7, 8, 7, 8)
                               << QVector<QRect>{edges(7, 8, 18, 19),
                                                 edges(1, 8, 12, 19),
                                                 edges(-4, 8, 7, 19),
                                                 edges(7, 2, 18, 13),
                                                 edges(-4, 2, 7, 13),
                                                 edges(7, -3, 18, 8),
                                                 edges(1, -3, 12, 8),
                                                 edges(-4, -3, 7, 8)};
    QTest::newRow("null") << QRect()
                          << QVector<QRect>{edges(0, 0, 11, 11),
                                            edges(-6, 0, 5, 11),
                                            edges(-12, 0, -1, 11),
                                            edges(0, -6, 11, 5),
                                            edges(-12, -6, -1, 5),
                                            edges(0, -12, 11, -1),
                                            edges(-6, -12, 5, -1),
                                            edges(-12, -12, -1, -1)};
    // The halves of -39 and of -67 are cut to -19 and -33.
    QTest::newRow("inverted by the top grip") << edges(170, 250, 130, 182)
                                              << QVector<QRect>{edges(170, 250, 181, 261),
                                                                edges(145, 250, 156, 261),
                                                                edges(119, 250, 130, 261),
                                                                edges(170, 211, 181, 222),
                                                                edges(119, 211, 130, 222),
                                                                edges(170, 171, 181, 182),
                                                                edges(145, 171, 156, 182),
                                                                edges(119, 171, 130, 182)};
}

void SelectionGeometryTest::putsHandlesAroundSelection()
{
    QFETCH(QRect, selection);
    QFETCH(QVector<QRect>, expected);

    const QHash<int, QRect> actual = handles(selection);
    for (int number = 0; number < expected.size(); ++number) {
        QVERIFY(actual.contains(number));
        QCOMPARE(actual.value(number), expected.at(number));
    }
}

void SelectionGeometryTest::numbersEightHandlesAndCursors()
{
    const QHash<int, Qt::CursorShape> expected{
        {0, Qt::SizeFDiagCursor},
        {1, Qt::SizeVerCursor},
        {2, Qt::SizeBDiagCursor},
        {3, Qt::SizeHorCursor},
        {4, Qt::SizeHorCursor},
        {5, Qt::SizeBDiagCursor},
        {6, Qt::SizeVerCursor},
        {7, Qt::SizeFDiagCursor},
    };
    QCOMPARE(handleCursors(), expected);
    QCOMPARE(handles(QRect(0, 0, 100, 100)).size(), 8);
}

void SelectionGeometryTest::movesInsideImage_data()
{
    QTest::addColumn<QPoint>("topLeft");
    QTest::addColumn<QPoint>("expected");

    QTest::newRow("free") << QPoint(30, 40) << QPoint(30, 40);
    QTest::newRow("at the left and top edges") << QPoint(10, 20) << QPoint(10, 20);
    QTest::newRow("beyond the left and top edges") << QPoint(9, 19) << QPoint(10, 20);
    QTest::newRow("one pixel short of the right and bottom edges") << QPoint(209, 219) << QPoint(209, 219);
    QTest::newRow("to the right and bottom edges") << QPoint(210, 220) << QPoint(209, 219);
    QTest::newRow("far beyond the right, far above") << QPoint(9999, -9999) << QPoint(209, 20);
    QTest::newRow("far beyond the left, far below") << QPoint(-9999, 9999) << QPoint(10, 219);
}

void SelectionGeometryTest::movesInsideImage()
{
    QFETCH(QPoint, topLeft);
    QFETCH(QPoint, expected);

    const QRect image = edges(10, 20, 309, 319);
    QCOMPARE(moved(QRect(100, 110, 100, 100), topLeft, image), QRect(expected, QSize(100, 100)));

    // One that fills the image has nowhere to go: the left and top limits come last.
    QCOMPARE(moved(image, topLeft, image), image);
}

void SelectionGeometryTest::dragsHandle_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<QRect>("selection");
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<QRect>("expected");

    const QRect middle = edges(100, 110, 199, 209);

    const auto topLeft = [&](const char *name) -> QTestData & { return QTest::newRow(name) << 0; };
    topLeft("top left, outward") << middle << QPoint(90, 100) << edges(90, 100, 199, 209);
    topLeft("top left, inward") << middle << QPoint(110, 120) << edges(110, 120, 199, 209);
    topLeft("top left, height is smaller") << middle << QPoint(80, 100) << edges(90, 100, 199, 209);
    topLeft("top left, width is smaller") << middle << QPoint(90, 60) << edges(90, 100, 199, 209);
    topLeft("top left, to the smallest span") << middle << QPoint(159, 169) << edges(159, 169, 199, 209);
    topLeft("top left, below the smallest span") << middle << QPoint(160, 500) << edges(159, 169, 199, 209);
    topLeft("top left, one dimension below the smallest span")
        << middle << QPoint(190, 150) << edges(159, 169, 199, 209);
    topLeft("top left, out of the image") << middle << QPoint(-50, -50) << edges(10, 20, 199, 209);
    topLeft("top left, out of the image, left edge is near")
        << edges(15, 40, 114, 139) << QPoint(-50, -50) << edges(10, 35, 114, 139);
    topLeft("top left, out of the image, top edge is near")
        << edges(40, 25, 139, 124) << QPoint(-50, -50) << edges(35, 20, 139, 124);

    const auto topRight = [&](const char *name) -> QTestData & { return QTest::newRow(name) << 2; };
    topRight("top right, outward") << middle << QPoint(209, 100) << edges(100, 100, 209, 209);
    topRight("top right, height is smaller") << middle << QPoint(219, 100) << edges(100, 100, 209, 209);
    topRight("top right, width is smaller") << middle << QPoint(209, 90) << edges(100, 100, 209, 209);
    topRight("top right, below the smallest span") << middle << QPoint(139, 170) << edges(100, 169, 140, 209);
    topRight("top right, out of the image") << middle << QPoint(999, -999) << edges(100, 20, 289, 209);
    topRight("top right, out of the image, right edge is near")
        << edges(200, 110, 299, 209) << QPoint(999, -999) << edges(200, 100, 309, 209);

    const auto bottomLeft = [&](const char *name) -> QTestData & { return QTest::newRow(name) << 5; };
    bottomLeft("bottom left, outward") << middle << QPoint(90, 219) << edges(90, 110, 199, 219);
    bottomLeft("bottom left, height is smaller") << middle << QPoint(80, 219) << edges(90, 110, 199, 219);
    bottomLeft("bottom left, width is smaller") << middle << QPoint(90, 229) << edges(90, 110, 199, 219);
    bottomLeft("bottom left, below the smallest span") << middle << QPoint(160, 149) << edges(159, 110, 199, 150);
    bottomLeft("bottom left, out of the image") << middle << QPoint(-999, 999) << edges(10, 110, 199, 299);
    bottomLeft("bottom left, out of the image, bottom edge is near")
        << edges(100, 210, 199, 309) << QPoint(-999, 999) << edges(90, 210, 199, 319);

    const auto bottomRight = [&](const char *name) -> QTestData & { return QTest::newRow(name) << 7; };
    bottomRight("bottom right, outward") << middle << QPoint(209, 219) << edges(100, 110, 209, 219);
    bottomRight("bottom right, height is smaller") << middle << QPoint(219, 219) << edges(100, 110, 209, 219);
    bottomRight("bottom right, width is smaller") << middle << QPoint(209, 229) << edges(100, 110, 209, 219);
    bottomRight("bottom right, below the smallest span") << middle << QPoint(139, 149) << edges(100, 110, 140, 150);
    bottomRight("bottom right, out of the image") << middle << QPoint(999, 999) << edges(100, 110, 309, 319);
    bottomRight("bottom right, out of the image, right edge is near")
        << edges(200, 110, 299, 209) << QPoint(999, 999) << edges(200, 110, 309, 219);

    const QRect atLeft = edges(10, 110, 109, 209);
    const QRect atRight = edges(210, 110, 309, 209);
    const QRect nearLeft = edges(15, 110, 114, 209);
    const QRect nearRight = edges(205, 110, 304, 209);

    const auto top = [&](const char *name) -> QTestData & { return QTest::newRow(name) << 1; };
    top("top, outward") << middle << QPoint(0, 90) << edges(90, 90, 209, 209);
    top("top, outward, odd") << middle << QPoint(0, 91) << edges(91, 91, 208, 209);
    top("top, inward") << middle << QPoint(0, 120) << edges(105, 120, 194, 209);
    top("top, inward, odd") << middle << QPoint(0, 121) << edges(105, 121, 194, 209);
    top("top, beyond the smallest span") << middle << QPoint(0, 180) << edges(135, 180, 164, 209);
    top("top, below the bottom") << middle << QPoint(0, 250) << edges(170, 250, 129, 209);
    top("top, to the limit of the image") << middle << QPoint(0, 279) << edges(184, 279, 115, 209);
    top("top, below the limit of the image") << middle << QPoint(0, 999) << edges(184, 279, 115, 209);
    top("top, out of the image") << middle << QPoint(0, -999) << edges(55, 20, 244, 209);
    top("top, grows at the left edge") << atLeft << QPoint(0, 109) << ignored();
    top("top, stays at the left edge") << atLeft << QPoint(0, 110) << atLeft;
    top("top, shrinks at the left edge") << atLeft << QPoint(0, 120) << edges(15, 120, 104, 209);
    top("top, grows at the right edge") << atRight << QPoint(0, 109) << ignored();
    top("top, is pulled in at the left edge") << nearLeft << QPoint(0, 90) << edges(10, 100, 119, 209);
    top("top, is pulled in at the right edge") << nearRight << QPoint(0, 90) << edges(200, 100, 309, 209);

    const auto bottom = [&](const char *name) -> QTestData & { return QTest::newRow(name) << 6; };
    bottom("bottom, outward") << middle << QPoint(0, 229) << edges(90, 110, 209, 229);
    bottom("bottom, outward, odd") << middle << QPoint(0, 228) << edges(91, 110, 208, 228);
    bottom("bottom, inward, odd") << middle << QPoint(0, 198) << edges(105, 110, 194, 198);
    bottom("bottom, below the smallest span") << middle << QPoint(0, 149) << edges(129, 110, 170, 150);
    bottom("bottom, out of the image") << middle << QPoint(0, 500) << edges(45, 110, 254, 319);
    bottom("bottom, grows at the left edge") << atLeft << QPoint(0, 210) << ignored();
    bottom("bottom, stays at the left edge") << atLeft << QPoint(0, 209) << atLeft;
    bottom("bottom, shrinks at the left edge") << atLeft << QPoint(0, 190) << edges(19, 110, 100, 190);
    bottom("bottom, grows at the right edge") << atRight << QPoint(0, 210) << ignored();
    bottom("bottom, is pulled in at the left edge") << nearLeft << QPoint(0, 229) << edges(10, 110, 119, 219);
    bottom("bottom, is pulled in by one pixel")
        << edges(11, 110, 110, 209) << QPoint(0, 213) << edges(10, 110, 111, 211);
    bottom("bottom, is pulled in at the right edge") << nearRight << QPoint(0, 229) << edges(200, 110, 309, 219);

    const QRect atTop = edges(100, 20, 199, 119);
    const QRect atBottom = edges(100, 220, 199, 319);
    const QRect nearTop = edges(100, 25, 199, 124);
    const QRect nearBottom = edges(100, 215, 199, 314);

    const auto left = [&](const char *name) -> QTestData & { return QTest::newRow(name) << 3; };
    left("left, outward") << middle << QPoint(80, 0) << edges(80, 100, 199, 219);
    left("left, outward, odd") << middle << QPoint(81, 0) << edges(81, 101, 199, 218);
    left("left, inward, odd") << middle << QPoint(111, 0) << edges(111, 115, 199, 204);
    left("left, below the smallest span") << middle << QPoint(160, 0) << edges(159, 139, 199, 180);
    left("left, out of the image") << middle << QPoint(-500, 0) << edges(10, 65, 199, 254);
    left("left, grows at the top edge") << atTop << QPoint(99, 0) << ignored();
    left("left, stays at the top edge") << atTop << QPoint(100, 0) << atTop;
    left("left, shrinks at the top edge") << atTop << QPoint(120, 0) << edges(120, 30, 199, 109);
    left("left, grows at the bottom edge") << atBottom << QPoint(99, 0) << ignored();
    left("left, is pulled in at the top edge") << nearTop << QPoint(80, 0) << edges(90, 20, 199, 129);
    left("left, is pulled in at the bottom edge") << nearBottom << QPoint(80, 0) << edges(90, 210, 199, 319);

    const auto right = [&](const char *name) -> QTestData & { return QTest::newRow(name) << 4; };
    right("right, outward") << middle << QPoint(219, 0) << edges(100, 100, 219, 219);
    right("right, outward, odd") << middle << QPoint(218, 0) << edges(100, 101, 218, 218);
    right("right, inward, odd") << middle << QPoint(188, 0) << edges(100, 115, 188, 204);
    right("right, below the smallest span") << middle << QPoint(139, 0) << edges(100, 139, 140, 180);
    right("right, out of the image") << middle << QPoint(500, 0) << edges(100, 55, 309, 264);
    right("right, grows at the top edge") << atTop << QPoint(200, 0) << ignored();
    right("right, stays at the top edge") << atTop << QPoint(199, 0) << atTop;
    right("right, shrinks at the top edge") << atTop << QPoint(180, 0) << edges(100, 29, 180, 110);
    right("right, grows at the bottom edge") << atBottom << QPoint(200, 0) << ignored();
    right("right, is pulled in at the top edge") << nearTop << QPoint(219, 0) << edges(100, 20, 209, 129);
    right("right, is pulled in at the bottom edge") << nearBottom << QPoint(219, 0) << edges(100, 210, 209, 319);
}

void SelectionGeometryTest::dragsHandle()
{
    QFETCH(int, handle);
    QFETCH(QRect, selection);
    QFETCH(QPoint, position);
    QFETCH(QRect, expected);

    const QRect image = edges(10, 20, 309, 319);
    QCOMPARE(resized(selection, handle, position, image).value_or(ignored()), expected);
}

void SelectionGeometryTest::dragsHandleOfImageSmallerThanSmallestSpan_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<QRect>("expected");

    const QPoint inward(25, 25);
    const QRect image = edges(10, 10, 39, 39);
    // The image limits the left and the top edge, the smallest span the right and the bottom one.
    QTest::newRow("top left") << 0 << inward << image;
    QTest::newRow("top right") << 2 << inward << image;
    QTest::newRow("bottom left") << 5 << inward << image;
    QTest::newRow("bottom right") << 7 << inward << edges(10, 10, 50, 50);
    // What the edge grips widen is pulled in again.
    QTest::newRow("top") << 1 << inward << image;
    QTest::newRow("left") << 3 << inward << image;
    QTest::newRow("right") << 4 << inward << edges(10, 10, 40, 39);
    QTest::newRow("bottom") << 6 << inward << edges(10, 10, 39, 40);
    QTest::newRow("top, outward") << 1 << QPoint(0, 0) << ignored();
    QTest::newRow("left, outward") << 3 << QPoint(0, 0) << ignored();
    QTest::newRow("right, outward") << 4 << QPoint(99, 99) << ignored();
    QTest::newRow("bottom, outward") << 6 << QPoint(99, 99) << ignored();
}

void SelectionGeometryTest::dragsHandleOfImageSmallerThanSmallestSpan()
{
    QFETCH(int, handle);
    QFETCH(QPoint, position);
    QFETCH(QRect, expected);

    const QRect image = edges(10, 10, 39, 39);
    QCOMPARE(resized(image, handle, position, image).value_or(ignored()), expected);
}

void SelectionGeometryTest::scalesSelectionToImagePixels_data()
{
    QTest::addColumn<QRect>("selection");
    QTest::addColumn<QRect>("shown");
    QTest::addColumn<QSize>("image");
    QTest::addColumn<QRect>("expected");

    const QRect shown(10, 20, 300, 200);
    QTest::newRow("same size") << QRect(30, 40, 50, 50) << shown << QSize(300, 200) << QRect(20, 20, 50, 50);
    QTest::newRow("ten times the size") << QRect(30, 40, 50, 50) << shown << QSize(3000, 2000)
                                        << QRect(200, 200, 500, 500);
    QTest::newRow("a third, cut") << QRect(30, 41, 50, 50) << shown << QSize(100, 66) << QRect(6, 7, 16, 16);
    QTest::newRow("the smaller scale counts")
        << QRect(110, 20, 200, 200) << shown << QSize(300, 400) << QRect(200, 0, 400, 400);
    QTest::newRow("left of the image, cut toward zero")
        << QRect(5, 15, 50, 50) << shown << QSize(150, 100) << QRect(-2, -2, 25, 25);
    QTest::newRow("less than a pixel") << QRect(10, 20, 41, 41) << QRect(10, 20, 300, 300) << QSize(3, 3)
                                       << QRect(0, 0, 0, 0);
    QTest::newRow("inverted") << edges(170, 150, 129, 109) << shown << QSize(300, 200) << QRect(160, 130, -40, -40);
    QTest::newRow("too thin to be seen") << QRect(50, 50, 0, 0) << QRect(50, 0, 0, 100) << QSize(1, 10000)
                                         << QRect(0, 0, -1, -1);
    QTest::newRow("never shown") << QRect() << QRect() << QSize(3, 3) << QRect(0, 0, -1, -1);
    QTest::newRow("image gone") << QRect() << shown << QSize(0, 0) << QRect(0, 0, -1, -1);
    QTest::newRow("no image") << QRect() << QRect() << QSize(0, 0) << QRect(0, 0, -1, -1);
}

void SelectionGeometryTest::scalesSelectionToImagePixels()
{
    QFETCH(QRect, selection);
    QFETCH(QRect, shown);
    QFETCH(QSize, image);
    QFETCH(QRect, expected);

    QCOMPARE(inImagePixels(selection, shown, image), expected);
}

QTEST_GUILESS_MAIN(SelectionGeometryTest)

#include "selectiongeometrytest.moc"
