/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userutils.h"

#include <QDir>
#include <QRandomGenerator>

#include <algorithm>

namespace
{
QLatin1String defaultName()
{
    return QLatin1String("default-user-red.");
}

/** The files of @p directory in its own order, that of their names. */
QFileInfoList filesOf(const QDir &directory)
{
    return directory.entryInfoList(QDir::Files, QDir::NoSort);
}

/** The files of @p directory, then those of each of its directories, "." and ".." included. */
QFileInfoList filesBelow(const QDir &directory)
{
    QFileInfoList files = filesOf(directory);
    const QFileInfoList subdirectories = directory.entryInfoList(QDir::Dirs, QDir::NoSort);
    for (const QFileInfo &subdirectory : subdirectories) {
        files += filesOf(QDir(subdirectory.absoluteFilePath()));
    }
    return files;
}
}

QString UserUtils::userIconPath()
{
    return QStringLiteral("/usr/share/kiv/faces");
}

QString UserUtils::getRandomUserIcon(bool preferDefault)
{
    const QFileInfoList icons = filesBelow(QDir(userIconPath()));
    if (icons.isEmpty()) {
        return {};
    }
    if (preferDefault) {
        const auto icon = std::find_if(icons.begin(), icons.end(), [](const QFileInfo &file) {
            return file.fileName().startsWith(defaultName());
        });
        if (icon != icons.end()) {
            return icon->absoluteFilePath();
        }
    }
    int index = QRandomGenerator::global()->bounded(icons.size());
    if (icons.at(index).fileName().contains(defaultName())) {
        index = (index + 1) % icons.size();
    }
    return icons.at(index).absoluteFilePath();
}
