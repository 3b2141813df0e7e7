/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SANDBOX_H
#define SANDBOX_H

#include <QByteArray>
#include <QString>

/**
 * The private files of a test. Every operation ends the program when it does not run below
 * scripts/sandbox, where /etc is a copy.
 */
namespace Sandbox
{
void write(const QString &path, const QByteArray &content);
void remove(const QString &path);

/** Makes @p directory exist, with nothing in it. */
void clear(const QString &directory);

/** Replaces /etc/passwd and /etc/group. */
void setAccounts(const QByteArray &passwd, const QByteArray &group);

/** Makes the accounts and groups given known to the name service alone, through libnss-extrausers. */
void setExtraAccounts(const QByteArray &passwd, const QByteArray &group);

/** Limits the name service to the local files again. */
void removeExtraAccounts();

/** Sets the sources that accounts and groups are looked up in, such as "files ldap". */
void setNameService(const QByteArray &sources);
}

#endif
