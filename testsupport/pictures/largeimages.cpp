/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "largeimages.h"

#include <QBuffer>
#include <QImage>
#include <QtEndian>

namespace
{
template<typename Number>
QByteArray bigEndian(Number number)
{
    QByteArray bytes(sizeof number, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

template<typename Number>
QByteArray littleEndian(Number number)
{
    QByteArray bytes(sizeof number, '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

QByteArray encoded(const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!QImage(8, 8, QImage::Format_RGB32).save(&buffer, format)) {
        qFatal("Cannot write %s", format);
    }
    return bytes;
}

/** The check sum at the end of a part of a PNG file. */
quint32 checkSum(const QByteArray &bytes)
{
    quint32 sum = 0xffffffff;
    for (const char byte : bytes) {
        sum ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            sum = (sum >> 1) ^ (sum & 1 ? 0xedb88320 : 0);
        }
    }
    return ~sum;
}

QByteArray png(const QSize &size)
{
    QByteArray png = encoded("png");
    constexpr int header = 12;
    png.replace(header + 4, 8, bigEndian(quint32(size.width())) + bigEndian(quint32(size.height())));
    png.replace(header + 17, 4, bigEndian(checkSum(png.mid(header, 17))));
    return png;
}

QByteArray jpeg(const QSize &size)
{
    QByteArray jpeg = encoded("jpg");
    const int frame = jpeg.indexOf("\xff\xc0");
    return jpeg.replace(frame + 5, 4, bigEndian(quint16(size.height())) + bigEndian(quint16(size.width())));
}

QByteArray bmp(const QSize &size)
{
    return encoded("bmp").replace(18, 8, littleEndian(qint32(size.width())) + littleEndian(qint32(size.height())));
}

QByteArray gif(const QSize &size)
{
    const QByteArray extent = littleEndian(quint16(size.width())) + littleEndian(quint16(size.height()));
    return "GIF89a" + extent + QByteArray::fromHex("800000000000ffffff2c00000000") + extent
        + QByteArray::fromHex("00020244013b");
}

/** The header of an icon file has sizes of up to 256 pixels only. The image in it may have more. */
QByteArray ico(const QSize &size)
{
    const QByteArray image = png(size);
    return QByteArray::fromHex("00000100010000000000010020 00") + littleEndian(quint32(image.size()))
        + littleEndian(quint32(22)) + image;
}

QByteArray text(const char *pattern, const QSize &size)
{
    return QByteArray(pattern)
        .replace("WIDTH", QByteArray::number(size.width()))
        .replace("HEIGHT", QByteArray::number(size.height()));
}
}

QVector<LargeImage> largeImages(const QSize &size)
{
    return {
        {"png", png(size)},
        {"jpg", jpeg(size)},
        {"bmp", bmp(size)},
        {"gif", gif(size)},
        {"ico", ico(size)},
        {"ppm", text("P6 WIDTH HEIGHT 255 ", size)},
        {"pbm", text("P4 WIDTH HEIGHT ", size)},
        {"xbm", text("#define x_width WIDTH\n#define x_height HEIGHT\nstatic char x_bits[] = {\n0x00};\n", size)},
        {"xpm", text("/* XPM */\nstatic char *x[] = {\n\"WIDTH HEIGHT 1 1\",\n\"a c #000000\",\n\"aaaa\"};\n", size)},
        {"svg",
         text(
             R"(<svg xmlns="http://www.w3.org/2000/svg" width="WIDTH" height="HEIGHT"><rect width="9" height="9"/></svg>)",
             size)},
    };
}
