/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PICTUREFILES_H
#define PICTUREFILES_H

#include <QImage>
#include <QVector>

/** Contents of picture files. */
namespace PictureFiles
{
QByteArray encoded(const QImage &image, const char *format);

/** An image of one colour. */
QImage plain(const QSize &size, const QColor &color);

/** A picture that does not compress well. */
QImage noise(const QSize &size);

struct File {
    const char *format;
    QByteArray content;
};

/** A file of each format that Qt reads: noise of @p size, but an SVG picture always has the size of svg(). */
QVector<File> ofEveryFormat(const QSize &size);

QByteArray gzipped(const QByteArray &content);

/** An SVG picture of 20 pixels a side with @p content. */
QByteArray svg(const QByteArray &content);

/** A JPEG file of @p size with @p scans more scans than it needs, each of which costs as much as the picture. */
QByteArray jpegOfManyScans(const QSize &size, int scans);
}

#endif
