/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef FILECONTENT_H
#define FILECONTENT_H

#include <QFile>

/** The content of a file. Ends the program if it cannot be read. */
inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("Cannot read %s", qPrintable(path));
    }
    return file.readAll();
}

#endif
