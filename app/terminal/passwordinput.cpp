/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "passwordinput.h"

#include <QFile>

#include <array>
#include <csignal>
#include <cstdio>

#include <termios.h>
#include <unistd.h>

namespace
{
/** For the signal handler. */
termios s_terminal;

void restoreTerminalAndDie(int signal)
{
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &s_terminal);
    raise(signal);
}

/** Sets what a signal does while it lives, unless the signal is ignored. */
class SignalAction
{
public:
    SignalAction(int signal, void (*handler)(int))
        : m_signal(signal)
    {
        struct sigaction action = {};
        action.sa_handler = handler;
        action.sa_flags = int(SA_RESETHAND);
        sigaction(signal, nullptr, &m_previous);
        if (m_previous.sa_handler != SIG_IGN) {
            sigaction(signal, &action, nullptr);
        }
    }

    ~SignalAction()
    {
        sigaction(m_signal, &m_previous, nullptr);
    }

private:
    Q_DISABLE_COPY(SignalAction)

    int m_signal;
    struct sigaction m_previous = {};
};

/** Keeps the terminal from showing what is typed, also when the program is ended from outside. */
class NoEcho
{
public:
    NoEcho()
    {
        termios quiet = s_terminal;
        quiet.c_lflag &= ~tcflag_t(ECHO);
        quiet.c_lflag |= ECHONL;
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet);
    }

    ~NoEcho()
    {
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &s_terminal);
    }

private:
    Q_DISABLE_COPY(NoEcho)

    SignalAction m_hangup{SIGHUP, restoreTerminalAndDie};
    SignalAction m_interrupt{SIGINT, restoreTerminalAndDie};
    SignalAction m_quit{SIGQUIT, restoreTerminalAndDie};
    SignalAction m_terminate{SIGTERM, restoreTerminalAndDie};
    // The shell would switch the echo on, and going on would show the rest.
    SignalAction m_stop{SIGTSTP, SIG_IGN};
};

QByteArray readLine()
{
    QFile input;
    if (!input.open(STDIN_FILENO, QIODevice::ReadOnly)) {
        return {};
    }
    QByteArray line = input.readLine();
    if (line.endsWith('\n')) {
        line.chop(1);
        return line;
    }
    return line.isEmpty() ? QByteArray() : line;
}
}

QByteArray readPassword(const QString &prompt)
{
    if (tcgetattr(STDIN_FILENO, &s_terminal) != 0) {
        return readLine();
    }
    const NoEcho noEcho;
    fputs(qPrintable(prompt), stderr);
    return readLine();
}
