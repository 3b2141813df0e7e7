/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "iconselectstage.h"
#include "peakmemory.h"
#include "processortime.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTest>
#include <algorithm>
#include <limits>

class IconSelectWidgetSpeedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void doesNotAllocateForLargeImages();
    void dragsLargeImagesFluently();
};

void IconSelectWidgetSpeedTest::doesNotAllocateForLargeImages()
{
    QImage image(6000, 4000, QImage::Format_RGB32);
    image.fill(Qt::gray);
    Stage stage(QSize(440, 360), image);
    stage.widget.repaint();

    PeakMemory::reset();
    const qint64 before = PeakMemory::bytes();
    stage.widget.selectAll();
    stage.press(stage.widget.selection().bottomRight());
    for (int i = 0; i < 20; ++i) {
        stage.move(stage.widget.selection().bottomRight() - QPoint(5, 5));
        stage.widget.repaint();
    }
    stage.release(QPoint(0, 0));
    const qint64 grown = PeakMemory::bytes() - before;
    QVERIFY2(grown < image.sizeInBytes() / 20, QByteArray::number(grown).constData());
}

void IconSelectWidgetSpeedTest::dragsLargeImagesFluently()
{
    const QImage image = patterned(QSize(600, 400)).scaled(6000, 4000);
    Stage stage(QSize(800, 600), image);
    QImage canvas(stage.widget.size(), QImage::Format_ARGB32_Premultiplied);

    qint64 drawing = std::numeric_limits<qint64>::max();
    qint64 dragging = drawing;
    const QPoint corner = stage.widget.selection().bottomRight();
    for (int i = 0; i < 30; ++i) {
        qint64 start = processorNanoseconds();
        QPainter painter(&canvas);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(stage.widget.imageRect(), image);
        painter.end();
        drawing = std::min(drawing, processorNanoseconds() - start);

        stage.press(stage.widget.selection().bottomRight());
        QMouseEvent step(QEvent::MouseMove, corner - QPoint(i, i), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        start = processorNanoseconds();
        QCoreApplication::sendEvent(&stage.widget, &step);
        stage.widget.repaint();
        dragging = std::min(dragging, processorNanoseconds() - start);
        stage.release(corner);
    }
    qInfo("%.2f ms for drawing the image, %.2f ms for a step of a drag", double(drawing) / 1e6, double(dragging) / 1e6);
    QVERIFY(dragging <= 2 * drawing);
}

QTEST_MAIN(IconSelectWidgetSpeedTest)

#include "iconselectwidgetspeedtest.moc"
