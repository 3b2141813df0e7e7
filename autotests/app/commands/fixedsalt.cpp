/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "randomscript.h"
#include "saltdraws.h"

// Preloaded before Qt, this replaces the random salt by the content of the variable FIXED_SALT.

__attribute__((constructor)) static void fixSalt()
{
    static const RandomScript script(saltDraws(qgetenv("FIXED_SALT")));
}
