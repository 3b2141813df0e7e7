/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef WATCHEDFILES_H
#define WATCHEDFILES_H

#include <QFileSystemWatcher>
#include <QObject>
#include <QStringList>

/**
 * Files whose changes are reported at once. Their folders are watched as well, since most tools write a new file
 * and give it the name of the old one.
 */
class WatchedFiles : public QObject
{
    Q_OBJECT

public:
    explicit WatchedFiles(const QStringList &paths);

Q_SIGNALS:
    void differ();

private:
    void look();
    void watchAgain();
    QByteArray state() const;

    const QStringList m_paths;
    QFileSystemWatcher m_watcher;
    /** Differs whenever the files differ. */
    QByteArray m_state;
};

#endif
