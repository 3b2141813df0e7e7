/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef FILEWATCHER_H
#define FILEWATCHER_H

#include <QFileSystemWatcher>
#include <QObject>
#include <QStringList>
#include <QTimer>

/**
 * Notices when files are written, replaced, created or removed. Their folders are watched as well, since
 * most tools write a new file and give it the name of the old one.
 */
class FileWatcher : public QObject
{
    Q_OBJECT

public:
    /** @param paths files, or folders of files */
    explicit FileWatcher(const QStringList &paths, QObject *parent = nullptr);

Q_SIGNALS:
    /** Files have changed, but not within the last half second. */
    void changed();

private:
    void look();
    void watchAgain();
    QByteArray state() const;

    const QStringList m_paths;
    QFileSystemWatcher m_watcher;
    QTimer m_calm;
    /** Differs whenever the files differ. */
    QByteArray m_state;
};

#endif
