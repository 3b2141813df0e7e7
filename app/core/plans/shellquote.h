/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SHELLQUOTE_H
#define SHELLQUOTE_H

#include <QByteArray>

/**
 * @p argument as one word of a POSIX shell, in UTF-8. Whatever the bytes are, the shell passes exactly these
 * on: nothing in them is expanded or ends the word. Bytes that nobody could see or that are no UTF-8 become
 * octal numbers for printf, so that nothing acts on the terminal into which the word is pasted.
 */
QByteArray quoteForShell(const QByteArray &argument);

#endif
