/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PICTUREREADER_H
#define PICTUREREADER_H

#include <QImage>
#include <QString>

/**
 * Reads pictures out of files that the operator chose, in every format that Qt knows.
 *
 * Somebody else may have made them, so only the file itself is opened, and a picture shows only
 * what is in it.
 */
namespace PictureReader
{
/** In pixels: 1 GiB in memory. A file of a few bytes can claim more than the machine has. */
constexpr qint64 mostPixels = qint64(1) << 28;

/** How long the text of an SVG picture may be when it is unpacked, in bytes. */
constexpr qint64 longestSvg = qint64(1) << 26;

enum class Problem {
    None,
    /** It cannot be opened. */
    Unreadable,
    /** A directory, or something whose reading could take for ever, such as a named pipe or a device. */
    NotAFile,
    /** More than mostPixels or longestSvg. */
    TooLarge,
    /** No picture, or a damaged one. */
    NotAPicture,
};

struct Result {
    /** Null when there is a problem. Pixels that are missing at the end of the file are zero. */
    QImage image;
    Problem problem = Problem::None;
    /** What the system or Qt says about the problem; empty when they say nothing. */
    QString details;
};

/** The picture in a file of any format and name. What an SVG picture refers to outside of it is left out. */
Result read(const QString &fileName);
}

#endif
