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
/** A terminal takes no longer line. */
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

/** The end of the input cannot be told from an empty line, so neither is taken for a password. */
QByteArray readTyped(const QString &prompt)
{
    LineBuffer buffer = {};
    const QByteArray text = prompt.toLocal8Bit();
    const char *typed = nullptr;
    do {
        typed = readpassphrase(text.constData(), buffer.data(), buffer.size(), RPP_ECHO_OFF);
        // A signal that the program ignores interrupts the input all the same.
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
