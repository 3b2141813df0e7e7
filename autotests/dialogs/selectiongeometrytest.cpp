/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "edges.h"
#include "selectiongeometry_p.h"

#include <QTest>

using SelectionGeometry::centredSquare;
using SelectionGeometry::handleCursors;
using SelectionGeometry::handles;
using SelectionGeometry::imageRect;
using SelectionGeometry::inImagePixels;
using SelectionGeometry::moved;

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
    // The halves of -39 and -67 are truncated to -19 and -33.
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

    // A selection that fills the image cannot move: the left and top limits are applied last.
    QCOMPARE(moved(image, topLeft, image), image);
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
