/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "packetstream.h"

#include <QtEndian>

namespace
{
constexpr int lengthSize = sizeof(quint32);
/** A signature, the type and the length of a packet. */
constexpr int headerSize = 2 + lengthSize;
constexpr char mark = '\xa5';

/** No packet is larger than a group with as many members as a machine has ids. */
constexpr quint32 maxLength = 256 * 1024 * 1024;

/** How many handled bytes are kept: moving the others after each packet would take long. */
constexpr int maxDone = 1024 * 1024;
}

QByteArray PacketStream::toBytes(const Packet &packet)
{
    QByteArray bytes(headerSize, mark);
    bytes[1] = static_cast<char>(packet.type);
    qToLittleEndian<quint32>(packet.data.size(), bytes.data() + 2);
    return bytes + packet.data;
}

void PacketStream::append(const QByteArray &bytes)
{
    if (m_position > maxDone) {
        m_bytes.remove(0, m_position);
        m_position = 0;
    }
    m_bytes += bytes;
}

std::optional<Packet> PacketStream::take()
{
    const int available = m_bytes.size() - m_position;
    if (m_broken || available < headerSize) {
        return {};
    }
    const char *header = m_bytes.constData() + m_position;
    const auto length = qFromLittleEndian<quint32>(header + 2);
    if (header[0] != mark || length > maxLength) {
        m_broken = true;
        return {};
    }
    if (quint32(available - headerSize) < length) {
        return {};
    }
    Packet packet{static_cast<quint8>(header[1]), m_bytes.mid(m_position + headerSize, int(length))};
    m_position += headerSize + int(length);
    return packet;
}

bool PacketStream::isBroken() const
{
    return m_broken;
}
