/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "filewatcher.h"

#include "watchedfiles.h"

namespace
{
/** In milliseconds. */
constexpr int calm = 500;
}

FileWatcher::FileWatcher(const QStringList &paths, QObject *parent)
    : QObject(parent)
{
    m_calm.setSingleShot(true);
    m_calm.setInterval(calm);
    connect(&m_calm, &QTimer::timeout, this, &FileWatcher::changed);

    auto *files = new WatchedFiles(paths);
    files->moveToThread(&m_thread);
    connect(&m_thread, &QThread::finished, files, &QObject::deleteLater);
    connect(files, &WatchedFiles::differ, &m_calm, qOverload<>(&QTimer::start));
    m_thread.start();
}

FileWatcher::~FileWatcher()
{
    m_thread.quit();
    m_thread.wait();
}
