/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef FILEWATCHER_H
#define FILEWATCHER_H

#include <QObject>
#include <QStringList>
#include <QThread>
#include <QTimer>

/** Notices when files are written, replaced, created or removed, and waits until nothing changes any more. */
class FileWatcher : public QObject
{
    Q_OBJECT

public:
    /** @param paths files, or folders of files; what they are now is what they are compared with */
    explicit FileWatcher(const QStringList &paths, QObject *parent = nullptr);
    ~FileWatcher() override;

Q_SIGNALS:
    /** Files have changed, but not within the last half second. */
    void changed();

private:
    /** Looks at the files, so that a slow disk does not block the window. */
    QThread m_thread;
    QTimer m_calm;
};

#endif
