/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "comparison.h"

#include <UserUtils>

#include <crypt.h>

using benchmark::State;

extern "C" char *gost_crypt(const char *key, const char *setting);

namespace
{
constexpr char password[] = "correct horse battery staple";

template<bool useGost>
void saltPassword(State &state)
{
    measure(state, [] { return UserUtils::saltPassword(QLatin1String(password), useGost); });
}

void cryptSha512(State &state)
{
    measure(state, [] { return crypt(password, "$6$0123456789abcdef$"); });
}

#ifdef HAVE_GOST_CRYPT
void cryptGost(State &state)
{
    measure(state, [] { return gost_crypt(password, "$gost12512hash$0123456789abcdef$"); });
}
#endif
}

Comparisons passwordComparisons()
{
    return {
        {"saltPassword",
         "`UserUtils::saltPassword()`, SHA-512",
         "`crypt`",
         {1.05},
         "",
         {},
         benchmark::oNone,
         saltPassword<false>,
         cryptSha512},
#ifdef HAVE_GOST_CRYPT
        {"saltPassword_gost",
         "`UserUtils::saltPassword()`, GOST R 34.11-2012",
         "`gost_crypt`",
         {1.05},
         "",
         {},
         benchmark::oNone,
         saltPassword<true>,
         cryptGost},
#endif
    };
}
