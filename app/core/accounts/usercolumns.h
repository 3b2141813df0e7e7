/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERCOLUMNS_H
#define USERCOLUMNS_H

#include "accountcolumn.h"

#include <UserInfo>

/** The columns of a list of users, in the order in which a list shows them. */
AccountColumns<UserInfo> userColumns();

#endif
