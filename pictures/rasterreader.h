/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef RASTERREADER_H
#define RASTERREADER_H

#include "picturereader.h"

class QImageReader;

/** Reads pictures of any format, within the limits of PictureReader. */
namespace RasterReader
{
PictureReader::Result read(QImageReader &reader);
}

#endif
