/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef TEXTLINES_H
#define TEXTLINES_H

#include <QByteArray>
#include <QString>
#include <QVector>

/** The lines of a file, each without its end. */
struct TextLines {
    QVector<QByteArray> lines;
    /** Why the file could not be read; 0 when it could. */
    int error = 0;
};

/** Reads a regular file; anything else that could block or never end is EINVAL. */
TextLines readTextLines(const char *path);

#endif
