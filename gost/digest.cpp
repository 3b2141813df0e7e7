/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "digest_p.h"

#include <cstring>

DigestValue::~DigestValue()
{
    explicit_bzero(bytes.data(), bytes.size());
}

Digest::Digest(int algorithm)
{
    // Initialises libgcrypt, unless that has been done.
    gcry_check_version(nullptr);
    gcry_md_open(&m_handle, algorithm, 0);
}

Digest::~Digest()
{
    gcry_md_close(m_handle);
}

bool Digest::isValid() const
{
    return m_handle;
}

void Digest::add(std::string_view text)
{
    gcry_md_write(m_handle, text.data(), text.size());
}

void Digest::add(const DigestValue &value)
{
    gcry_md_write(m_handle, value.bytes.data(), DigestValue::size);
}

void Digest::addRepeated(const DigestValue &value, std::size_t length)
{
    for (; length > DigestValue::size; length -= DigestValue::size) {
        add(value);
    }
    gcry_md_write(m_handle, value.bytes.data(), length);
}

void Digest::finish(DigestValue &value)
{
    std::memcpy(value.bytes.data(), gcry_md_read(m_handle, 0), DigestValue::size);
    gcry_md_reset(m_handle);
}
