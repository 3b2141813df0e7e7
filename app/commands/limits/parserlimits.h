/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PARSERLIMITS_H
#define PARSERLIMITS_H

#include <QString>

/** What LimitsParser finds in the limits files, for developers. */
namespace ParserLimits
{
/** All rules with their meaning. */
int showRules();
int showUser(const QString &name);
int showGroup(const QString &name);
}

#endif
