/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "iconselectstage.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QTest>

namespace
{
/** The expected picture: @p background, the image, and the selection over it. */
QImage painted(const IconSelectWidget &widget, const QPixmap &background)
{
    QPixmap picture = background;
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.drawImage(widget.imageRect(), widget.image(), QRect(QPoint(0, 0), widget.image().size()));

    const QRect selection = widget.selection();
    const QRect circle(selection.left() + 1, selection.top() + 1, selection.width() - 2, selection.height() - 2);
    QPainterPath outside;
    outside.addRect(widget.imageRect());
    outside.addEllipse(circle);
    painter.setPen(QPen(widget.palette().color(QPalette::WindowText), 1));
    painter.setBrush(QBrush(QColor(255, 255, 255, 150), Qt::SolidPattern));
    painter.drawPath(outside);

    painter.setPen(QPen(QBrush(QColor(0, 255, 0)), 3));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(circle);
    painter.drawEllipse(circle);

    for (int number = 0; number < 8; ++number) {
        painter.fillRect(widget.handles().value(number), widget.palette().color(QPalette::Highlight));
    }
    painter.end();
    return picture.toImage();
}

/** Records the render hints when pictures are drawn, and draws nothing. */
class HintRecorder : public QPaintDevice, private QPaintEngine
{
public:
    HintRecorder()
        : QPaintEngine(AllFeatures)
    {
    }

    QPaintEngine *paintEngine() const override
    {
        return const_cast<HintRecorder *>(this);
    }

    QVector<QPainter::RenderHints> hints;

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        return metric == PdmWidth || metric == PdmHeight ? 1000 : QPaintDevice::metric(metric);
    }

private:
    Type type() const override
    {
        return User;
    }

    bool begin(QPaintDevice * /*device*/) override
    {
        return true;
    }

    bool end() override
    {
        return true;
    }

    void updateState(const QPaintEngineState & /*state*/) override
    {
    }

    void drawPixmap(const QRectF & /*target*/, const QPixmap & /*pixmap*/, const QRectF & /*source*/) override
    {
        hints.append(painter()->renderHints());
    }

    void drawPath(const QPainterPath & /*path*/) override
    {
    }
};
}

class IconSelectWidgetPaintTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void paints_data();
    void paints();
    void paintsWithColoursOfPalette();
    void veilsOutsideOfCircle();
    void paintsNothingWithoutImage();
    void asksForBestRendering();
};

void IconSelectWidgetPaintTest::paints_data()
{
    QTest::addColumn<QSize>("widgetSize");
    QTest::addColumn<QSize>("imageSize");
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<QPoint>("draggedTo");

    const QPoint untouched;
    const auto rgb = QImage::Format_RGB32;
    QTest::newRow("same size") << QSize(300, 300) << QSize(300, 300) << rgb << untouched;
    QTest::newRow("wide, enlarged") << QSize(321, 300) << QSize(40, 20) << rgb << untouched;
    QTest::newRow("tall, reduced") << QSize(300, 333) << QSize(600, 901) << rgb << untouched;
    QTest::newRow("small selection") << QSize(300, 300) << QSize(450, 300) << rgb << QPoint(120, 120);
    QTest::newRow("smallest selection") << QSize(300, 300) << QSize(450, 300) << rgb << QPoint(0, 0);
    QTest::newRow("transparent") << QSize(300, 300) << QSize(450, 300) << QImage::Format_ARGB32 << untouched;
    QTest::newRow("palette") << QSize(300, 300) << QSize(450, 300) << QImage::Format_Indexed8 << untouched;
    QTest::newRow("black and white") << QSize(300, 300) << QSize(450, 300) << QImage::Format_Mono << untouched;
    QTest::newRow("one pixel") << QSize(300, 300) << QSize(1, 1) << rgb << untouched;
    QTest::newRow("a pixel in a pixel") << QSize(1, 1) << QSize(1, 1) << rgb << untouched;
    QTest::newRow("grips overlap") << QSize(20, 20) << QSize(30, 30) << rgb << untouched;
    QTest::newRow("too thin to be seen") << QSize(300, 300) << QSize(1, 10000) << rgb << untouched;
    QTest::newRow("long") << QSize(300, 300) << QSize(10000, 40) << rgb << untouched;
}

void IconSelectWidgetPaintTest::paints()
{
    QFETCH(QSize, widgetSize);
    QFETCH(QSize, imageSize);
    QFETCH(QImage::Format, format);
    QFETCH(QPoint, draggedTo);

    Stage stage(widgetSize);
    const QPixmap background = stage.widget.grab();
    stage.widget.setImage(patterned(imageSize, format));
    if (!draggedTo.isNull()) {
        stage.drag(stage.widget.selection().bottomRight(), draggedTo);
    }
    QCOMPARE(stage.widget.grab().toImage(), painted(stage.widget, background));
}

void IconSelectWidgetPaintTest::paintsWithColoursOfPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::darkCyan);
    palette.setColor(QPalette::WindowText, Qt::red);
    palette.setColor(QPalette::Active, QPalette::Highlight, Qt::blue);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, Qt::blue);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, Qt::yellow);
    Stage stage(QSize(300, 300));
    stage.widget.setPalette(palette);
    const QPixmap background = stage.widget.grab();
    stage.widget.setImage(patterned(QSize(300, 200)));

    const QImage enabled = stage.widget.grab().toImage();
    QCOMPARE(enabled, painted(stage.widget, background));
    QCOMPARE(enabled.pixelColor(50, 50), QColor(Qt::blue));
    QCOMPARE(enabled.pixelColor(249, 249), QColor(Qt::blue));

    stage.widget.setEnabled(false);
    const QImage disabled = stage.widget.grab().toImage();
    QCOMPARE(disabled, painted(stage.widget, background));
    QCOMPARE(disabled.pixelColor(50, 50), QColor(Qt::yellow));
}

void IconSelectWidgetPaintTest::veilsOutsideOfCircle()
{
    const QColor plain(20, 80, 160);
    QImage image(300, 200, QImage::Format_RGB32);
    image.fill(plain);
    Stage stage(QSize(300, 300));
    const QColor background = stage.widget.grab().toImage().pixelColor(0, 0);
    stage.widget.setImage(image);
    const QImage picture = stage.widget.grab().toImage();

    // 150 of 255 parts white
    const QColor veiled(158, 182, 215);
    const auto isVeiled = [&](int x, int y) {
        const QColor actual = picture.pixelColor(x, y);
        return qAbs(actual.red() - veiled.red()) <= 2 && qAbs(actual.green() - veiled.green()) <= 2
            && qAbs(actual.blue() - veiled.blue()) <= 2;
    };
    QVERIFY(isVeiled(20, 150));
    QVERIFY(isVeiled(280, 60));
    QVERIFY(isVeiled(70, 70)); // in the square, outside the circle
    QVERIFY(isVeiled(230, 230));
    QCOMPARE(picture.pixelColor(150, 150), plain);
    QCOMPARE(picture.pixelColor(150, 70), plain);
    QCOMPARE(picture.pixelColor(80, 150), plain);
    QCOMPARE(picture.pixelColor(100, 51), QColor(Qt::green));
    QCOMPARE(picture.pixelColor(51, 100), QColor(Qt::green));
    QCOMPARE(picture.pixelColor(10, 40), background);
    QCOMPARE(picture.pixelColor(150, 260), background);
}

void IconSelectWidgetPaintTest::paintsNothingWithoutImage()
{
    Stage stage(QSize(300, 300));
    const QImage background = stage.widget.grab().toImage();
    stage.widget.setImage(patterned(QSize(300, 200)));
    QVERIFY(stage.widget.grab().toImage() != background);
    stage.widget.setImage(QImage());
    QCOMPARE(stage.widget.grab().toImage(), background);
}

void IconSelectWidgetPaintTest::asksForBestRendering()
{
    Stage stage(QSize(300, 300), patterned(QSize(300, 200)));
    HintRecorder recorder;
    stage.widget.render(&recorder, QPoint(), QRegion(), {});
    QCOMPARE(recorder.hints.size(), 1);
    const QPainter::RenderHints best =
        QPainter::Antialiasing | QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering;
    QCOMPARE(recorder.hints.constFirst() & best, best);
}

QTEST_MAIN(IconSelectWidgetPaintTest)

#include "iconselectwidgetpainttest.moc"
