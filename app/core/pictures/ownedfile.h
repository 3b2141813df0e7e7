/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef OWNEDFILE_H
#define OWNEDFILE_H

#include <QByteArray>

#include <sys/types.h>

/** Reads files from places that other users control. */
namespace OwnedFile
{
/** In bytes. */
constexpr qint64 largest = qint64(1) << 20;

/**
 * The contents of the file @p name in @p directory; null unless it is a regular file of at most
 * `largest` bytes that belongs to @p owner or to root.
 *
 * The file is opened once, and what was opened is what is checked. Links are followed only where only
 * root can have created them: neither for the file itself nor below a directory of somebody else.
 */
QByteArray read(const QByteArray &directory, const QByteArray &name, uid_t owner);
}

#endif
