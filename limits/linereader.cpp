/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "linereader_p.h"

#include <QIODevice>

namespace
{
constexpr size_t usualLength = 4096;

/** Unlike that of QChar, this leaves the bytes above 127 alone: in UTF-8 they are parts of letters. */
constexpr bool isSpace(char byte)
{
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}
}

LineReader::LineReader(QIODevice &device)
    : m_device(device)
    , m_buffer(usualLength)
{
}

bool LineReader::next()
{
    // A line that is not ended is the last one, even if its file has grown meanwhile: what the
    // device would give next is the rest of it.
    if (m_size > 0 && m_buffer[m_size - 1] != '\n') {
        return false;
    }
    m_size = 0;
    do {
        // The device ends each piece with a NUL byte, which the next piece overwrites.
        if (m_buffer.size() - m_size < 2) {
            m_buffer.resize(2 * m_buffer.size());
        }
        const qint64 read = m_device.readLine(m_buffer.data() + m_size, static_cast<qint64>(m_buffer.size() - m_size));
        if (read <= 0) {
            break;
        }
        m_size += static_cast<size_t>(read);
    } while (m_buffer[m_size - 1] != '\n');
    return m_size > 0;
}

QLatin1String LineReader::trimmed() const
{
    const char *begin = m_buffer.data();
    const char *end = begin + m_size;
    while (begin != end && isSpace(*begin)) {
        ++begin;
    }
    while (begin != end && isSpace(end[-1])) {
        --end;
    }
    return QLatin1String(begin, end);
}
