/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "watchedfiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace
{
QByteArray stampOf(const QString &path)
{
    struct stat status;
    if (stat(QFile::encodeName(path).constData(), &status) != 0) {
        return "-";
    }
    const qint64 parts[] = {
        qint64(status.st_ino),
        qint64(status.st_size),
        qint64(status.st_mode),
        status.st_mtim.tv_sec,
        status.st_mtim.tv_nsec,
        status.st_ctim.tv_sec,
        status.st_ctim.tv_nsec,
    };
    return QByteArray(reinterpret_cast<const char *>(parts), sizeof(parts));
}

/** The files below @p path, if it is a folder, and @p path itself. */
QStringList filesOf(const QString &path)
{
    QStringList files(path);
    const QDir folder(path);
    const QStringList names = folder.entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString &name : names) {
        files.append(folder.filePath(name));
    }
    return files;
}
}

WatchedFiles::WatchedFiles(const QStringList &paths)
    : m_paths(paths)
    , m_watcher(this)
{
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &WatchedFiles::look);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &WatchedFiles::look);
    watchAgain();
    m_state = state();
}

void WatchedFiles::look()
{
    watchAgain();
    const QByteArray now = state();
    if (now != m_state) {
        m_state = now;
        Q_EMIT differ();
    }
}

/** A replaced file is no longer watched, and a new one is not watched yet. */
void WatchedFiles::watchAgain()
{
    QStringList wanted;
    for (const QString &path : m_paths) {
        wanted += QFileInfo(path).path();
        wanted += filesOf(path);
    }
    wanted.removeDuplicates();
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    QStringList missing;
    for (const QString &path : qAsConst(wanted)) {
        if (!watched.contains(path) && QFileInfo(path).isReadable()) {
            missing.append(path);
        }
    }
    if (!missing.isEmpty()) {
        m_watcher.addPaths(missing);
    }
}

QByteArray WatchedFiles::state() const
{
    QByteArray state;
    for (const QString &path : m_paths) {
        const QStringList files = filesOf(path);
        for (const QString &file : files) {
            state += file.toUtf8() + '\0' + stampOf(file);
        }
    }
    return state;
}
