/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GUNZIP_H
#define GUNZIP_H

#include <QByteArray>

bool isGzipped(const QByteArray &data);

/**
 * What was compressed by gzip into @p data, but no more than @p longest bytes of it; as much as can be
 * read when it is damaged.
 */
QByteArray gunzip(const QByteArray &data, qint64 longest);

#endif
