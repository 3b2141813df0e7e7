/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SMALLPICTURE_H
#define SMALLPICTURE_H

#include <QImage>

/** Makes small pictures of PNG and JPEG files. */
namespace SmallPicture
{
constexpr qint64 mostPixels = qint64(1) << 24;

struct Result {
    /** The picture, shrunk so that it is still larger than `size` but less than twice as wide and high. */
    QImage image;
    /** How large the picture has to be to fit into what was asked for. */
    QSize size;
};

/**
 * The picture in @p file for a place of @p place. Null for other formats, damaged files and more than
 * mostPixels.
 *
 * Starts no thread and opens no file once prepare() was called.
 */
Result decode(const QByteArray &file, const QSize &place);

/** Loads the decoders. */
void prepare();
}

#endif
