/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "rasterreader.h"

#include <QImageReader>
#include <QtEndian>

namespace
{
using PictureReader::Problem;

/** Qt does not know the size of a GIF picture before it has decoded it. */
QSize gifSize(QIODevice &file)
{
    constexpr int offset = 6;
    const QByteArray header = file.peek(offset + 2 * int(sizeof(quint16)));
    if (!header.startsWith("GIF8") || header.size() < offset + 2 * int(sizeof(quint16))) {
        return {};
    }
    const char *size = header.constData() + offset;
    return {qFromLittleEndian<quint16>(size), qFromLittleEndian<quint16>(size + sizeof(quint16))};
}

QSize claimedSize(const QImageReader &reader)
{
    const QSize size = reader.size();
    return size.isValid() ? size : gifSize(*reader.device());
}
}

PictureReader::Result RasterReader::read(QImageReader &reader)
{
    const QSize claimed = claimedSize(reader);
    if (qint64(claimed.width()) * claimed.height() > PictureReader::mostPixels) {
        return {{}, Problem::TooLarge, {}};
    }
    // Decoders leave the missing pixels of a truncated file untouched: empty, not what this memory held before.
    QImage image(reader.size(), reader.imageFormat());
    image.fill(0);
    if (!reader.read(&image)) {
        return {{}, Problem::NotAPicture, reader.errorString()};
    }
    if (image.isNull()) { // as Qt reads an SVG picture without a size
        return {{}, Problem::NotAPicture, QImageReader::tr("Unable to read image data")};
    }
    return {image, Problem::None, {}};
}
