/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SANDBOX_H
#define SANDBOX_H

#include <QByteArray>
#include <QString>

/**
 * The private files of a test. Every operation ends the program if it does not run in scripts/sandbox, where
 * /etc is a copy.
 */
namespace Sandbox
{
void write(const QString &path, const QByteArray &content);
void remove(const QString &path);

/** Writes a new file and gives it the name of the old one, as the tools for accounts do. */
void replace(const QString &path, const QByteArray &content);

/** Makes @p directory an empty directory. */
void clear(const QString &directory);

/** Replaces /etc/passwd and /etc/group. */
void setAccounts(const QByteArray &passwd, const QByteArray &group);

/** Adds accounts and groups that only the name service knows, through libnss-extrausers. */
void setExtraAccounts(const QByteArray &passwd, const QByteArray &group);

/** Limits the name service to the local files again. */
void removeExtraAccounts();

/** Sets the sources of accounts and groups, for example "files ldap". */
void setNameService(const QByteArray &sources);
}

#endif
