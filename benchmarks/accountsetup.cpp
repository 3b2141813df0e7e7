/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountsetup.h"

void prepareAccounts(const benchmark::State &state, SharedGroups place)
{
    GeneratedAccounts::write(static_cast<int>(state.range(0)), place);
}
