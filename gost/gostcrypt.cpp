/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "shacrypt_p.h"

#include <gcrypt.h>

/**
 * Hashes @p key with the method "$gost12512hash$": SHA-512 crypt with GOST R 34.11-2012 (512 bits)
 * for its digest.
 *
 * @return the hash, in static storage until the next call; null, with errno set, on failure.
 */
extern "C" __attribute__((visibility("default"))) char *gost_crypt(const char *key, const char *setting)
{
    static ShaCryptHash hash;
    const ShaCryptMethod method{"$gost12512hash$", GCRY_MD_STRIBOG512};
    return shaCrypt(method, key, setting, hash) ? hash.data() : nullptr;
}
