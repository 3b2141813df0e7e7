/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LARGEIMAGES_H
#define LARGEIMAGES_H

#include <QByteArray>
#include <QSize>
#include <QVector>

struct LargeImage {
    const char *format;
    QByteArray content;
};

/** For each image format, a file of a few bytes that claims to be an image of @p size and has almost no pixels. */
QVector<LargeImage> largeImages(const QSize &size);

#endif
