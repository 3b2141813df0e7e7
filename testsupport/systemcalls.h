/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SYSTEMCALLS_H
#define SYSTEMCALLS_H

#include <QByteArrayList>
#include <QString>
#include <QVector>

/** The system calls about files, sockets and processes that a program makes, seen by strace. */
struct SystemCall {
    /** Such as "openat". */
    QString name;
    /** What stands in parentheses. */
    QString arguments;

    /** The last text among the arguments: the name of a link, or a new name. */
    QString path() const;

    /** The file that was opened, without links in its path; empty when none was. */
    QString openedPath() const;

    /** Whether a file is opened for reading only. */
    bool opensForReading() const;

    /** Whether something in the file system is or may be changed. */
    bool changesFiles() const;

    /** Whether a program or another process is started; a thread does not count. */
    bool startsProcess() const;

    bool isAboutSockets() const;
};

/**
 * The calls of a program of the build and of its children, between its checks for the files "/begin"
 * and "/end". It must succeed.
 */
QVector<SystemCall>
systemCallsOf(const QString &program, const QStringList &arguments, const QStringList &variables = {});

#endif
