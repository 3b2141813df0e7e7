/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef TERMINALSESSION_H
#define TERMINALSESSION_H

#include <QByteArray>

#include <sys/types.h>

/** A shell command on a terminal of its own; "$0" in it is ormel-users. */
class TerminalSession
{
public:
    explicit TerminalSession(const char *command, ushort columns = 80);
    ~TerminalSession();

    bool hasStarted() const;

    /** Reads until @p text has been shown; false when the program ended or was silent for long. */
    bool waitFor(const QByteArray &text);

    /** Waits until the program in the foreground waits for input; false when that takes long. */
    bool waitForSleep() const;

    void type(const QByteArray &keys) const;

    bool echoes() const;

    void kill(int signal) const;

    /** Waits for the end; the wait status of waitpid(). */
    int end();

    /** All that was shown, with the line ends of a terminal. */
    QByteArray shown() const;

private:
    Q_DISABLE_COPY(TerminalSession)

    bool read();

    pid_t m_pid = -1;
    int m_terminal = -1;
    QByteArray m_shown;
};

#endif
