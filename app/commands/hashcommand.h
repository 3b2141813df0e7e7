/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef HASHCOMMAND_H
#define HASHCOMMAND_H

#include "command.h"

QList<QCommandLineOption> hashOptions();

/** Hashes the password in the first line of standard input. */
int hashPassword(const QCommandLineParser &options, const QString &operand);

#endif
