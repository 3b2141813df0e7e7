/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef OWNEDFILE_H
#define OWNEDFILE_H

#include <QByteArray>

#include <sys/types.h>

/** Reads files in places where another user decides what is there. */
namespace OwnedFile
{
/** In bytes. */
constexpr qint64 largest = qint64(1) << 20;

/**
 * What is in the file @p name of @p directory; null unless it is a regular file of at most `largest`
 * bytes that belongs to @p owner or to root.
 *
 * The file is opened once, and what was opened is what is checked. Links are followed only where
 * root alone can have put them: not in the place of the file or below a directory of somebody else.
 */
QByteArray read(const QByteArray &directory, const QByteArray &name, uid_t owner);
}

#endif
