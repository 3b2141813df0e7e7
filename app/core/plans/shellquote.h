/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SHELLQUOTE_H
#define SHELLQUOTE_H

#include <QByteArray>

/**
 * @p argument as one word of a POSIX shell, in UTF-8. Whatever the bytes are, the shell passes exactly these
 * on: nothing in them is expanded or ends the word. Invisible characters and bytes that are not UTF-8 become
 * octal numbers for printf, so that nothing controls the terminal into which the word is pasted.
 */
QByteArray quoteForShell(const QByteArray &argument);

#endif
