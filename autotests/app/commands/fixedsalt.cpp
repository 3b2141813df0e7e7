/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "randomscript.h"
#include "saltdraws.h"

// Loaded into a program before the toolkit, makes the salt what FIXED_SALT says.

__attribute__((constructor)) static void fixSalt()
{
    static const RandomScript script(saltDraws(qgetenv("FIXED_SALT")));
}
