/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GUNZIP_H
#define GUNZIP_H

#include <QByteArray>

bool isGzipped(const QByteArray &data);

/**
 * Unpacks @p data, which gzip has compressed, up to @p longest bytes. Damaged data is unpacked as far
 * as it can be read.
 */
QByteArray gunzip(const QByteArray &data, qint64 longest);

#endif
