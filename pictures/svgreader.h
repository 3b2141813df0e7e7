/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SVGREADER_H
#define SVGREADER_H

#include "picturereader.h"

class QIODevice;
class QImageReader;

/** Reads SVG pictures, compressed or not. Qt opens the files that a picture names, so it gets none of these names. */
namespace SvgReader
{
bool canRead(const QImageReader &reader);

PictureReader::Result read(QIODevice &file);
}

#endif
