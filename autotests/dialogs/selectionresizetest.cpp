/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "edges.h"
#include "selectiongeometry_p.h"

#include <QTest>

using SelectionGeometry::resized;

namespace
{
/** Stands for a drag that is ignored. No drag results in a null rectangle. */
QRect ignored()
{
    return {};
}
}

class SelectionResizeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dragsHandle_data();
    void dragsHandle();
    void dragsHandleOfImageSmallerThanSmallestSpan_data();
    void dragsHandleOfImageSmallerThanSmallestSpan();
};

void SelectionResizeTest::dragsHandle_data()
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

void SelectionResizeTest::dragsHandle()
{
    QFETCH(int, handle);
    QFETCH(QRect, selection);
    QFETCH(QPoint, position);
    QFETCH(QRect, expected);

    const QRect image = edges(10, 20, 309, 319);
    QCOMPARE(resized(selection, handle, position, image).value_or(ignored()), expected);
}

void SelectionResizeTest::dragsHandleOfImageSmallerThanSmallestSpan_data()
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
    // A square that an edge grip widens beyond the image is moved back into it.
    QTest::newRow("top") << 1 << inward << image;
    QTest::newRow("left") << 3 << inward << image;
    QTest::newRow("right") << 4 << inward << edges(10, 10, 40, 39);
    QTest::newRow("bottom") << 6 << inward << edges(10, 10, 39, 40);
    QTest::newRow("top, outward") << 1 << QPoint(0, 0) << ignored();
    QTest::newRow("left, outward") << 3 << QPoint(0, 0) << ignored();
    QTest::newRow("right, outward") << 4 << QPoint(99, 99) << ignored();
    QTest::newRow("bottom, outward") << 6 << QPoint(99, 99) << ignored();
}

void SelectionResizeTest::dragsHandleOfImageSmallerThanSmallestSpan()
{
    QFETCH(int, handle);
    QFETCH(QPoint, position);
    QFETCH(QRect, expected);

    const QRect image = edges(10, 10, 39, 39);
    QCOMPARE(resized(image, handle, position, image).value_or(ignored()), expected);
}

QTEST_GUILESS_MAIN(SelectionResizeTest)

#include "selectionresizetest.moc"
