/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITSCOMMANDS_H
#define LIMITSCOMMANDS_H

#include "command.h"

QList<QCommandLineOption> limitsOptions();

/** Shows the rules of the limits files, what applies to one account, or what is wrong with the files. */
int showLimits(const QCommandLineParser &options, const QString &operand);

#endif
