/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PROBLEMSCOMMAND_H
#define PROBLEMSCOMMAND_H

#include "command.h"

QList<QCommandLineOption> problemsOptions();

/**
 * Lists the problems of the accounts: Success when there are none, Failure when there are some,
 * Unreadable when files that anybody may read cannot be read.
 */
int listProblems(const QCommandLineParser &options, const QString &operand);

#endif
