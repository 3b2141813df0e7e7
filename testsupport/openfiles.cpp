/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "openfiles.h"

#include <memory>

#include <dirent.h>
#include <unistd.h>

QStringList openFiles()
{
    const std::unique_ptr<DIR, int (*)(DIR *)> directory(opendir("/proc/self/fd"), closedir);
    if (!directory) {
        qFatal("Cannot list the file descriptors");
    }
    QStringList files;
    while (const dirent *entry = readdir(directory.get())) {
        char target[4096];
        const ssize_t length = readlinkat(dirfd(directory.get()), entry->d_name, target, sizeof(target));
        // Leaves out ".", ".." and the descriptor of the listing itself.
        if (length > 0 && atoi(entry->d_name) != dirfd(directory.get())) {
            files.append(QString::fromLatin1(entry->d_name) + QLatin1Char(' ')
                         + QString::fromLocal8Bit(target, static_cast<int>(length)));
        }
    }
    files.sort();
    return files;
}
