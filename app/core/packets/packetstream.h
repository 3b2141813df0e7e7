/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PACKETSTREAM_H
#define PACKETSTREAM_H

#include <QByteArray>

#include <optional>

/** The types that all programs send. The first packet is a hello, with a text that names the program. */
enum CommonPacket : quint8 {
    HelloPacket = 1,
    AlivePacket, ///< nothing; between any two others
};

/** A piece of data with a number that says what is in it. */
struct Packet {
    quint8 type = 0;
    QByteArray data;
};

/** Packets one after the other, as bytes in a pipe: type, length, data. */
class PacketStream
{
public:
    /** The bytes of @p packet. */
    static QByteArray toBytes(const Packet &packet);

    /** Adds bytes that have arrived. */
    void append(const QByteArray &bytes);

    /** Takes out the next packet; nothing until all of it has arrived. */
    std::optional<Packet> take();

    /** Whether bytes have arrived that are not from toBytes(). Nothing can be taken out from then on. */
    bool isBroken() const;

private:
    QByteArray m_bytes;
    /** Where the next packet begins. */
    int m_position = 0;
    bool m_broken = false;
};

#endif
