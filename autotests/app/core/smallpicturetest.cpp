/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "smallpicture.h"
#include "largeimages.h"
#include "picturefiles.h"

#include <QBuffer>
#include <QImageWriter>
#include <QTest>

#include <malloc.h>

namespace
{
QImage decode(const QByteArray &file, const QSize &place)
{
    return SmallPicture::decode(file, place).image;
}
}

Q_DECLARE_METATYPE(QImageIOHandler::Transformations)

class SmallPictureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decodes_data();
    void decodes();
    void averagesColors();
    void keepsTransparency();
    void turns_data();
    void turns();
    void refusesOtherFormats_data();
    void refusesOtherFormats();
    void refusesTooManyPixels_data();
    void refusesTooManyPixels();
    void acceptsMostPixels();
    void doesNotShowMemory_data();
    void doesNotShowMemory();
};

void SmallPictureTest::decodes_data()
{
    QTest::addColumn<QSize>("original");
    QTest::addColumn<QSize>("expected");

    // At least 96 pixels wide or high, but less than 192.
    QTest::newRow("smaller") << QSize(20, 10) << QSize(20, 10);
    QTest::newRow("same") << QSize(96, 96) << QSize(96, 96);
    QTest::newRow("less than twice") << QSize(191, 191) << QSize(191, 191);
    QTest::newRow("twice") << QSize(192, 192) << QSize(96, 96);
    QTest::newRow("wide") << QSize(960, 480) << QSize(96, 48);
    QTest::newRow("high") << QSize(480, 960) << QSize(48, 96);
    QTest::newRow("with a rest") << QSize(1000, 500) << QSize(100, 50);
    QTest::newRow("very wide") << QSize(30000, 1) << QSize(96, 1);
    QTest::newRow("very high") << QSize(1, 30000) << QSize(1, 96);
}

void SmallPictureTest::decodes()
{
    QFETCH(QSize, original);
    QFETCH(QSize, expected);

    for (const char *format : {"png", "jpg"}) {
        const QImage image = decode(PictureFiles::encoded(PictureFiles::plain(original, Qt::white), format), {96, 96});
        QCOMPARE(image.size(), expected);
        QCOMPARE(image.format(), QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
        QCOMPARE(image.pixelColor(image.rect().bottomRight()), QColor(Qt::white));
    }
}

void SmallPictureTest::averagesColors()
{
    QImage image(200, 200, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixel(x, y, x % 2 == y % 2 ? qRgb(200, 100, 0) : qRgb(100, 0, 50));
        }
    }
    const QImage small = decode(PictureFiles::encoded(image, "png"), {100, 100});
    QCOMPARE(small, PictureFiles::plain({100, 100}, QColor(150, 50, 25)).convertToFormat(small.format()));
}

void SmallPictureTest::keepsTransparency()
{
    QImage image(192, 192, QImage::Format_ARGB32);
    image.fill(QColor(255, 0, 0, 0));
    for (int x = 0; x < image.width(); x += 2) {
        for (int y = 0; y < image.height(); ++y) {
            image.setPixelColor(x, y, QColor(0, 0, 255, 255));
        }
    }
    const QImage small = decode(PictureFiles::encoded(image, "png"), {96, 96});
    QCOMPARE(small.pixelColor(50, 50), QColor(0, 0, 255, 127)); // nothing of the invisible red
}

void SmallPictureTest::turns_data()
{
    QTest::addColumn<QImageIOHandler::Transformations>("transformation");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("corner");

    using Handler = QImageIOHandler;
    const auto row = [](const char *name, Handler::Transformations how, const QSize &size, const QPoint &corner) {
        QTest::newRow(name) << how << size << corner;
    };
    // The place of the upper left corner after the turn.
    row("none", Handler::TransformationNone, {90, 60}, {0, 0});
    row("mirrored", Handler::TransformationMirror, {90, 60}, {89, 0});
    row("flipped", Handler::TransformationFlip, {90, 60}, {0, 59});
    row("half a turn", Handler::TransformationRotate180, {90, 60}, {89, 59});
    row("a quarter", Handler::TransformationRotate90, {60, 90}, {59, 0});
    row("mirrored, a quarter", Handler::TransformationMirrorAndRotate90, {60, 90}, {59, 89});
    row("flipped, a quarter", Handler::TransformationFlipAndRotate90, {60, 90}, {0, 0});
    row("three quarters", Handler::TransformationRotate270, {60, 90}, {0, 89});
}

void SmallPictureTest::turns()
{
    QFETCH(QImageIOHandler::Transformations, transformation);
    QFETCH(QSize, size);
    QFETCH(QPoint, corner);

    QImage image = PictureFiles::plain({900, 600}, Qt::white);
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 200; ++x) {
            image.setPixel(x, y, qRgb(0, 0, 0));
        }
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpg");
    writer.setTransformation(transformation);
    QVERIFY(writer.write(image));

    const QImage small = decode(buffer.data(), {90, 90});
    QCOMPARE(small.size(), size);
    const QPoint opposite = small.rect().bottomRight() - corner;
    QVERIFY(qGray(small.pixel(corner)) < 20);
    QVERIFY(qGray(small.pixel(opposite)) > 235);
}

void SmallPictureTest::refusesOtherFormats_data()
{
    QTest::addColumn<QByteArray>("file");

    const QImage image = PictureFiles::plain({20, 20}, Qt::red);
    for (const char *format : {"bmp", "ico", "pbm", "ppm", "xbm", "xpm"}) {
        QTest::newRow(format) << PictureFiles::encoded(image, format);
    }
    const QByteArray svg = PictureFiles::svg("<rect/>");
    const QByteArray png = PictureFiles::encoded(image, "png");
    QTest::newRow("svg") << svg;
    QTest::newRow("svgz") << PictureFiles::gzipped(svg);
    QTest::newRow("compressed png") << PictureFiles::gzipped(png);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("only the start of a png") << png.left(40);
    QTest::newRow("only the signature of a png") << png.left(8);
    QTest::newRow("only the signature of a jpeg") << PictureFiles::encoded(image, "jpg").left(3);
}

void SmallPictureTest::refusesOtherFormats()
{
    QFETCH(QByteArray, file);

    QVERIFY(decode(file, {96, 96}).isNull());
}

void SmallPictureTest::refusesTooManyPixels_data()
{
    QTest::addColumn<QSize>("size");

    QTest::newRow("a row too many") << QSize(4096, 4097);
    QTest::newRow("much") << QSize(22000, 22000);
}

void SmallPictureTest::refusesTooManyPixels()
{
    QFETCH(QSize, size);

    const QVector<LargeImage> images = largeImages(size);
    for (const LargeImage &image : images) {
        QVERIFY2(decode(image.content, {96, 96}).isNull(), image.format);
    }
    if (size.width() == 4096) {
        QVERIFY(decode(PictureFiles::encoded(QImage(size, QImage::Format_Mono), "png"), {96, 96}).isNull());
    }
}

void SmallPictureTest::acceptsMostPixels()
{
    QImage image(4096, 4096, QImage::Format_Mono);
    image.fill(1);
    QCOMPARE(decode(PictureFiles::encoded(image, "png"), {96, 96}).size(), QSize(97, 97));
}

void SmallPictureTest::doesNotShowMemory_data()
{
    QTest::addColumn<QByteArray>("file");

    const QImage image = PictureFiles::noise({100, 100});
    for (const char *format : {"png", "jpg"}) {
        const QByteArray whole = PictureFiles::encoded(image, format);
        for (const int eighths : {2, 4, 7}) {
            QTest::addRow("%d eighths of %s", eighths, format) << whole.left(whole.size() / 8 * eighths);
        }
    }
}

void SmallPictureTest::doesNotShowMemory()
{
    QFETCH(QByteArray, file);

    QVector<QImage> images;
    for (const int fill : {0x55, 0xaa}) {
        mallopt(M_PERTURB, fill); // new memory holds this
        images.append(decode(file, {96, 96}));
    }
    mallopt(M_PERTURB, 0);
    QCOMPARE(images.first(), images.last());
}

QTEST_GUILESS_MAIN(SmallPictureTest)

#include "smallpicturetest.moc"
