/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef DIGEST_P_H
#define DIGEST_P_H

#include <array>
#include <cstddef>
#include <string_view>

#include <gcrypt.h>

/** The result of a Digest; wiped when it goes out of scope. */
struct DigestValue {
    static constexpr std::size_t size = 64;

    DigestValue() = default;
    DigestValue(const DigestValue &) = delete;
    DigestValue &operator=(const DigestValue &) = delete;
    ~DigestValue();

    std::array<unsigned char, size> bytes;
};

/** A digest of 512 bits over the bytes added since it was made or last finished. */
class Digest
{
public:
    /** @p algorithm is one of libgcrypt's, such as GCRY_MD_STRIBOG512. */
    explicit Digest(int algorithm);
    Digest(const Digest &) = delete;
    Digest &operator=(const Digest &) = delete;
    /** Wipes what is left of the bytes. */
    ~Digest();

    /** False when libgcrypt has no such algorithm or no memory; then nothing else may be called. */
    bool isValid() const;

    void add(std::string_view text);
    void add(const DigestValue &value);

    /** Adds @p length bytes: @p value repeated, and cut short at the end. */
    void addRepeated(const DigestValue &value, std::size_t length);

    void finish(DigestValue &value);

private:
    gcry_md_hd_t m_handle = nullptr;
};

#endif
