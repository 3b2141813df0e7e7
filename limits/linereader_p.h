/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LINEREADER_P_H
#define LINEREADER_P_H

#include <QLatin1String>

#include <vector>

class QIODevice;

/** Reads lines of any length, each into the memory of the one before it. */
class LineReader
{
public:
    /** Reads from @p device, which must outlive this. */
    explicit LineReader(QIODevice &device);

    /** Goes on to the next line; false when there is none. */
    bool next();

    /** The line without white space at its ends, valid until next(). */
    QLatin1String trimmed() const;

private:
    QIODevice &m_device;
    std::vector<char> m_buffer;
    size_t m_size = 0;
};

#endif
