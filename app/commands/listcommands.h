/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LISTCOMMANDS_H
#define LISTCOMMANDS_H

#include "command.h"

QList<QCommandLineOption> listOptions();

/** Lists the accounts of /etc/passwd. */
int listUsers(const QCommandLineParser &options, const QString &operand);

/** Lists the groups of /etc/group. */
int listGroups(const QCommandLineParser &options, const QString &operand);

#endif
