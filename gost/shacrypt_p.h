/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef SHACRYPT_P_H
#define SHACRYPT_P_H

#include <array>

/** The method that a prefix stands for: the SHA-512 crypt construction over a digest of 512 bits. */
struct ShaCryptMethod {
    const char *prefix;
    /** One of libgcrypt's digests: GCRY_MD_SHA512 makes "$6$". */
    int digest;
};

/** Room for the prefix, "rounds=999999999$", the salt with its "$", 86 characters of hash and the end. */
using ShaCryptHash = std::array<char, 144>;

/**
 * Hashes @p key as @p setting, which may be a whole hash, asks for.
 *
 * @return whether @p hash has been set. If not, errno is EINVAL for a setting that the method
 * does not take or a null pointer, ERANGE for a key that is longer than crypt() takes, ENOSYS when
 * the digest is not there.
 */
bool shaCrypt(const ShaCryptMethod &method, const char *key, const char *setting, ShaCryptHash &hash);

#endif
