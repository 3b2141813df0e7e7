/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "svgreader.h"

#include "gunzip.h"
#include "rasterreader.h"
#include "svgtext.h"

#include <QBuffer>
#include <QImageReader>

using PictureReader::Problem;
using PictureReader::Result;

bool SvgReader::canRead(const QImageReader &reader)
{
    return reader.format().startsWith("svg");
}

Result SvgReader::read(QIODevice &file)
{
    QByteArray text = file.read(PictureReader::longestSvg + 1);
    const bool isCompressed = isGzipped(text);
    if (isCompressed) {
        text = gunzip(text, PictureReader::longestSvg + 1);
    }
    if (text.size() > PictureReader::longestSvg) {
        return {{}, Problem::TooLarge, {}};
    }
    QByteArray ownText = svgWithoutReferences(text, !isCompressed);
    QBuffer buffer(&ownText);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "svg");
    return RasterReader::read(reader);
}
