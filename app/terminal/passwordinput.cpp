/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "passwordinput.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <cstring>

#include <bsd/readpassphrase.h>
#include <unistd.h>

namespace
{
/** Terminals do not take longer lines. */
using LineBuffer = std::array<char, 4096>;

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

/** The end of the input looks like an empty line, so neither is taken as a password. */
QByteArray readTyped(const QString &prompt)
{
    LineBuffer buffer = {};
    const QByteArray text = prompt.toLocal8Bit();
    const char *typed = nullptr;
    do {
        typed = readpassphrase(text.constData(), buffer.data(), buffer.size(), RPP_ECHO_OFF);
        // Even a signal that the program ignores interrupts the input.
    } while (!typed && errno == EINTR);
    QByteArray line = typed && *typed != '\0' ? QByteArray(typed) : QByteArray();
    explicit_bzero(buffer.data(), buffer.size());
    return line;
}
}

QByteArray readPassword(const QString &prompt)
{
    return isatty(STDIN_FILENO) ? readTyped(prompt) : readLine();
}
