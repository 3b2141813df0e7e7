/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GROUPCOLUMNS_H
#define GROUPCOLUMNS_H

#include "accountcolumn.h"
#include "groupmembers.h"

/** The columns of a list of groups, in the order in which a list shows them. */
AccountColumns<GroupMembers> groupColumns();

#endif
