/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CHECKCOMMANDS_H
#define CHECKCOMMANDS_H

#include "command.h"

// Each prints whether the text is accepted, unfinished or rejected, and by which rule; the exit
// status is 0, 1 or 2.

/** Checks a login name for a new user. */
int checkName(const QCommandLineParser &options, const QString &operand);

/** Checks a group name. */
int checkGroup(const QCommandLineParser &options, const QString &operand);

/** Checks a GECOS field. */
int checkGecos(const QCommandLineParser &options, const QString &operand);

#endif
