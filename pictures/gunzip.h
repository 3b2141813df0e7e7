/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GUNZIP_H
#define GUNZIP_H

#include <QByteArray>

bool isGzipped(const QByteArray &data);

/**
 * Unpacks @p data, which gzip has compressed, up to @p longest bytes. Data that ends early is unpacked as far as it
 * goes; for data that is damaged in another way, the result is empty. Qt reads compressed pictures in the same way.
 */
QByteArray gunzip(const QByteArray &data, qint64 longest);

#endif
