/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "picturefiles.h"

#include "program.h"

#include <QBuffer>
#include <QImageWriter>

#include <random>

namespace
{
QByteArray written(QImageWriter &writer, QBuffer &buffer, const QImage &image)
{
    if (!writer.write(image)) {
        qFatal("Cannot write %s: %s", writer.format().constData(), qPrintable(writer.errorString()));
    }
    return buffer.data();
}
}

QByteArray PictureFiles::encoded(const QImage &image, const char *format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    return written(writer, buffer, image);
}

QImage PictureFiles::plain(const QSize &size, const QColor &color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

QImage PictureFiles::noise(const QSize &size)
{
    std::mt19937 random(1);
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixel(x, y, 0xff000000 | random());
        }
    }
    return image;
}

QByteArray PictureFiles::gzipped(const QByteArray &content)
{
    return Program::run(QStringLiteral("gzip"), {QStringLiteral("-c")}, content).output;
}

QByteArray PictureFiles::svg(const QByteArray &content)
{
    return R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" width="20" height="20">)"
        + content + "</svg>";
}

QByteArray PictureFiles::jpegOfManyScans(const QSize &size, int scans)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpg");
    writer.setProgressiveScanWrite(true);
    QByteArray file = written(writer, buffer, plain(size, Qt::gray));
    // The last scan, with the table before it, is a refinement that can be repeated.
    const int end = file.lastIndexOf("\xff\xd9");
    const QByteArray scan = file.mid(file.lastIndexOf("\xff\xc4", end), -1).chopped(2);
    return file.insert(end, scan.repeated(scans));
}
