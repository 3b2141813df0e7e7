/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITFINDINGS_H
#define LIMITFINDINGS_H

#include "limitusage.h"

namespace PamLimits
{
/** Something in the limits files that is not what it seems to be. */
struct Finding {
    QString file;
    /** 0 for the whole file. */
    int number = 0;
    QString text;
    /** What is the case, as a sentence without a full stop. */
    QString statement;
};

/** What there is to say of the line at @p place; empty for nothing. */
QStringList statementsOf(const SessionLimits &limits, const LimitUsage &usage, int place);

/** All findings, in the order of the files and lines. */
QVector<Finding> findings(const SessionLimits &limits, const LimitUsage &usage);

/** What programs that read @p line with LimitsParser do not see or see in another way; empty when they see what PAM
 * does. */
QString parserProblem(const Rules &rules, const Line &line);
}

#endif
