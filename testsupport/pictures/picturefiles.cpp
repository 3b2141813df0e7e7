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

/** Bits of GIF pictures, the first one the lowest of a byte, in blocks. */
QByteArray gifBlocks(const QVector<bool> &bits)
{
    QByteArray bytes((bits.size() + 7) / 8, '\0');
    for (int i = 0; i < bits.size(); ++i) {
        bytes[i / 8] = char(uchar(bytes.at(i / 8)) | uchar(bits.at(i) << (i % 8)));
    }
    constexpr int longest = 255;
    QByteArray blocks;
    for (int i = 0; i < bytes.size(); i += longest) {
        const QByteArray block = bytes.mid(i, longest);
        blocks += char(block.size()) + block;
    }
    return blocks + '\0';
}

/** Black and white, and not compressed, as Qt writes no GIF pictures. */
QByteArray gifOfNoise(const QSize &size)
{
    std::mt19937 random(1);
    QVector<bool> bits;
    const auto addCode = [&bits](unsigned code) { bits += {bool(code & 1), bool(code & 2), bool(code & 4)}; };
    constexpr unsigned clear = 4; // before each pixel, so that codes stay this short
    constexpr unsigned end = 5;
    for (int i = 0; i < size.width() * size.height(); ++i) {
        addCode(clear);
        addCode(random() % 2);
    }
    addCode(end);
    const auto number = [](int value) -> QByteArray { return QByteArray(1, char(value % 256)) + char(value / 256); };
    const QByteArray extent = number(size.width()) + number(size.height());
    return "GIF89a" + extent + QByteArray::fromHex("800000000000ffffff2c00000000") + extent
        + QByteArray::fromHex("0002") + gifBlocks(bits) + ';';
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

QVector<PictureFiles::File> PictureFiles::ofEveryFormat(const QSize &size)
{
    QVector<File> files{
        {"gif", gifOfNoise(size)},
        {"svg", svg(QByteArray(R"(<rect width="9" height="9"/>)").repeated(100))},
    };
    const QImage image = noise(size);
    for (const char *format : {"bmp", "ico", "jpg", "pbm", "pgm", "png", "ppm", "xbm", "xpm"}) {
        files.append({format, encoded(image, format)});
    }
    return files;
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
