/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LISTCOMMANDS_H
#define LISTCOMMANDS_H

#include "command.h"

QList<QCommandLineOption> userListOptions();
QList<QCommandLineOption> groupListOptions();

// Each prints the accounts with the given names, or all: Failure when one of the names is unknown,
// Unreadable when the account files cannot be read.

/** Lists users: those of /etc/passwd, unless names are given. */
int listUsers(const QCommandLineParser &options, const QString &operand);

/** Lists groups: those of /etc/group, unless names are given. */
int listGroups(const QCommandLineParser &options, const QString &operand);

#endif
