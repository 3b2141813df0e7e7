/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PASSWORDINPUT_H
#define PASSWORDINPUT_H

#include <QByteArray>

class QString;

/**
 * Reads a line from standard input; on a terminal after @p prompt and without echo.
 *
 * @return the line without its end; null when there is none, and for an empty line from a terminal.
 */
QByteArray readPassword(const QString &prompt);

#endif
