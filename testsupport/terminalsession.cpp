/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "terminalsession.h"

#include "program.h"

#include <QFile>
#include <QTest>

#include <csignal>

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

TerminalSession::TerminalSession(const char *command, ushort columns)
{
    const winsize size = {24, columns, 0, 0};
    const QByteArray path = QFile::encodeName(Program::path());
    m_pid = forkpty(&m_terminal, nullptr, nullptr, &size);
    if (m_pid == 0) {
        execlp("bash", "bash", "-c", command, path.constData(), nullptr);
        _exit(127);
    }
}

TerminalSession::~TerminalSession()
{
    if (m_pid > 0) {
        ::kill(m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }
    close(m_terminal);
}

bool TerminalSession::hasStarted() const
{
    return m_pid > 0;
}

bool TerminalSession::waitFor(const QByteArray &text)
{
    while (!m_shown.contains(text)) {
        if (!read()) {
            return false;
        }
    }
    return true;
}

bool TerminalSession::waitForSleep() const
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(tcgetpgrp(m_terminal)));
    return QTest::qWaitFor(
        [&file] {
            const bool sleeps = file.open(QIODevice::ReadOnly) && file.readAll().contains(") S ");
            file.close();
            return sleeps;
        },
        10000);
}

void TerminalSession::type(const QByteArray &keys) const
{
    if (::write(m_terminal, keys.constData(), size_t(keys.size())) != keys.size()) {
        qFatal("Cannot write to the terminal");
    }
}

bool TerminalSession::echoes() const
{
    termios settings = {};
    tcgetattr(m_terminal, &settings);
    return settings.c_lflag & tcflag_t(ECHO);
}

void TerminalSession::kill(int signal) const
{
    ::kill(m_pid, signal);
}

int TerminalSession::end()
{
    while (read()) { }
    int status = -1;
    waitpid(m_pid, &status, 0);
    m_pid = -1;
    return status;
}

QByteArray TerminalSession::shown() const
{
    return m_shown;
}

bool TerminalSession::read()
{
    pollfd descriptor = {m_terminal, POLLIN, 0};
    char buffer[512];
    if (poll(&descriptor, 1, 10000) <= 0) {
        return false;
    }
    const ssize_t count = ::read(m_terminal, buffer, sizeof(buffer));
    if (count <= 0) {
        return false;
    }
    m_shown.append(buffer, int(count));
    return true;
}
