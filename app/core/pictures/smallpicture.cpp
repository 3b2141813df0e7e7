/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "smallpicture.h"

#include <QBuffer>
#include <QImageReader>
#include <QTransform>

namespace
{
struct Format {
    const char *name;
    const char *start;
};

const Format formats[] = {
    {"png", "\x89PNG\r\n\x1a\n"},
    {"jpeg", "\xff\xd8\xff"},
};

QByteArray formatOf(const QByteArray &file)
{
    for (const Format &format : formats) {
        if (file.startsWith(format.start)) {
            return format.name;
        }
    }
    return {};
}

/** The average of the pixels in @p area. */
QRgb averageColor(const QImage &image, const QRect &area)
{
    quint64 red = 0;
    quint64 green = 0;
    quint64 blue = 0;
    quint64 alpha = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb pixel = qPremultiply(image.pixel(x, y));
            red += uint(qRed(pixel));
            green += uint(qGreen(pixel));
            blue += uint(qBlue(pixel));
            alpha += uint(qAlpha(pixel));
        }
    }
    const quint64 count = quint64(area.width()) * quint64(area.height());
    return qRgba(int(red / count), int(green / count), int(blue / count), int(alpha / count));
}

/** Qt's own functions for this start threads. */
QImage shrunk(const QImage &image, const QSize &size)
{
    const QSize block(qMax(1, image.width() / size.width()), qMax(1, image.height() / size.height()));
    QImage result(image.width() / block.width(), image.height() / block.height(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < result.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            line[x] = averageColor(image, QRect(QPoint(x * block.width(), y * block.height()), block));
        }
    }
    return result;
}

/** QImageReader itself would turn the picture before it is shrunk. */
QImage transformed(const QImage &image, QImageIOHandler::Transformations how)
{
    const QImage mirrored =
        image.mirrored(how & QImageIOHandler::TransformationMirror, how & QImageIOHandler::TransformationFlip);
    const bool turned = how & QImageIOHandler::TransformationRotate90;
    return turned ? mirrored.transformed(QTransform().rotate(90)) : mirrored;
}
}

SmallPicture::Result SmallPicture::decode(const QByteArray &file, const QSize &place)
{
    const QByteArray format = formatOf(file);
    if (format.isEmpty()) {
        return {};
    }
    QBuffer buffer;
    buffer.setData(file);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    const QSize original = reader.size();
    if (original.isEmpty() || qint64(original.width()) * original.height() > mostPixels) {
        return {};
    }
    // Decoders leave the missing pixels of a truncated file untouched.
    QImage image(original, reader.imageFormat());
    image.fill(0);
    if (!reader.read(&image)) {
        return {};
    }
    const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    const QSize size = original.scaled(turned ? place.transposed() : place, Qt::KeepAspectRatio).expandedTo({1, 1});
    return {transformed(shrunk(image, size), reader.transformation()), turned ? size.transposed() : size};
}

void SmallPicture::prepare()
{
    for (const Format &format : formats) {
        QBuffer buffer;
        buffer.setData(format.start, int(qstrlen(format.start)));
        buffer.open(QIODevice::ReadOnly);
        QImageReader(&buffer, format.name).canRead();
    }
}
