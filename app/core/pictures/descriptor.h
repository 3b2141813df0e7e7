/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef DESCRIPTOR_H
#define DESCRIPTOR_H

#include <utility>

#include <unistd.h>

/** Owns a file descriptor and closes it. */
class Descriptor
{
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }

    Descriptor(Descriptor &&other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {
    }

    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }

    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    ~Descriptor()
    {
        if (isOpen()) {
            close(m_number);
        }
    }

    bool isOpen() const
    {
        return m_number >= 0;
    }

    int number() const
    {
        return m_number;
    }

private:
    int m_number;
};

#endif
