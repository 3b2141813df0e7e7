/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "shacrypt_p.h"

#include "cryptsetting_p.h"
#include "digest_p.h"

#include <algorithm>
#include <cerrno>
#include <charconv>

// The construction is the one published for SHA-512 crypt.

namespace
{
/**
 * In bytes, as for the C library's crypt(), which every program that checks a password calls. The
 * time grows with the square of the length: a megabyte would take hours.
 */
constexpr std::size_t longestKey = 511;

/** The first digest, over key and salt, from which the rounds start. */
void start(Digest &digest, std::string_view key, std::string_view salt, DigestValue &value)
{
    DigestValue inner;
    digest.add(key);
    digest.add(salt);
    digest.add(key);
    digest.finish(inner);

    digest.add(key);
    digest.add(salt);
    digest.addRepeated(inner, key.size());
    for (std::size_t bits = key.size(); bits > 0; bits >>= 1) {
        if (bits & 1) {
            digest.add(inner);
        } else {
            digest.add(key);
        }
    }
    digest.finish(value);
}

void digestOfRepeated(Digest &digest, std::string_view text, std::size_t count, DigestValue &value)
{
    for (std::size_t i = 0; i < count; ++i) {
        digest.add(text);
    }
    digest.finish(value);
}

void runRounds(Digest &digest, std::string_view key, const CryptSetting &setting, DigestValue &value)
{
    DigestValue keyDigest;
    DigestValue saltDigest;
    digestOfRepeated(digest, key, key.size(), keyDigest);
    digestOfRepeated(digest, setting.salt, 16U + value.bytes[0], saltDigest);

    for (unsigned round = 0; round < setting.rounds; ++round) {
        const bool keyFirst = round % 2 != 0;
        if (keyFirst) {
            digest.addRepeated(keyDigest, key.size());
        } else {
            digest.add(value);
        }
        if (round % 3 != 0) {
            digest.addRepeated(saltDigest, setting.salt.size());
        }
        if (round % 7 != 0) {
            digest.addRepeated(keyDigest, key.size());
        }
        if (keyFirst) {
            digest.add(value);
        } else {
            digest.addRepeated(keyDigest, key.size());
        }
        digest.finish(value);
    }
}

char *writeText(char *out, std::string_view text)
{
    return std::copy(text.begin(), text.end(), out);
}

/** Writes the method and the setting, as they stand before the hash; returns where they end. */
char *writeSetting(char *out, const ShaCryptMethod &method, const CryptSetting &setting)
{
    out = writeText(out, method.prefix);
    if (setting.hasExplicitRounds) {
        out = writeText(out, "rounds=");
        out = std::to_chars(out, out + 9, setting.rounds).ptr;
        out = writeText(out, "$");
    }
    out = writeText(out, setting.salt);
    return writeText(out, "$");
}

/** Writes @p bits in characters of six bits each, the lowest ones first. */
char *writeBits(char *out, unsigned bits, int characters)
{
    static constexpr char alphabet[] = "./0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    for (; characters > 0; --characters, bits >>= 6) {
        *out++ = alphabet[bits & 0x3f];
    }
    return out;
}

/** Three bytes make four characters; they come from the three thirds of the value in turn. */
char *writeValue(char *out, const DigestValue &value)
{
    unsigned high = 0;
    unsigned middle = 21;
    unsigned low = 42;
    for (int i = 0; i < 21; ++i) {
        const auto &bytes = value.bytes;
        out = writeBits(out, unsigned(bytes[high]) << 16 | unsigned(bytes[middle]) << 8 | bytes[low], 4);
        const unsigned nextHigh = middle + 1;
        middle = low + 1;
        low = high + 1;
        high = nextHigh;
    }
    return writeBits(out, value.bytes[63], 2);
}

bool fail(int error)
{
    errno = error;
    return false;
}
}

bool shaCrypt(const ShaCryptMethod &method, const char *key, const char *setting, ShaCryptHash &hash)
{
    const auto parsed = key && setting ? parseCryptSetting(method.prefix, setting) : std::nullopt;
    if (!parsed) {
        return fail(EINVAL);
    }
    if (std::string_view(key).size() > longestKey) {
        return fail(ERANGE);
    }
    Digest digest(method.digest);
    if (!digest.isValid()) {
        return fail(ENOSYS);
    }
    DigestValue value;
    start(digest, key, parsed->salt, value);
    runRounds(digest, key, *parsed, value);
    *writeValue(writeSetting(hash.data(), method, *parsed), value) = '\0';
    return true;
}
