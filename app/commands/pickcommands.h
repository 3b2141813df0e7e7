/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PICKCOMMANDS_H
#define PICKCOMMANDS_H

#include "command.h"

QList<QCommandLineOption> pickUsersOptions();
QList<QCommandLineOption> pickGroupsOptions();

/** Opens the user dialog and prints the names chosen; Failure when it was cancelled. */
int pickUsers(const QCommandLineParser &options, const QString &operand);

/** Opens the group dialog and prints the names chosen; Failure when it was cancelled. */
int pickGroups(const QCommandLineParser &options, const QString &operand);

#endif
