/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SESSIONACCOUNTOF_H
#define SESSIONACCOUNTOF_H

#include "sessionaccount.h"

struct UserRecord;

/** What counts of @p user for the limits of a session. Looks nothing up, so it never waits for a name service. */
PamLimits::Account sessionAccountOf(const UserRecord &user);

#endif
