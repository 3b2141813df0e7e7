/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PACKETWRITER_H
#define PACKETWRITER_H

#include "packing.h"

#include <memory>
#include <tuple>

/**
 * Writes packets to standard output, for a PacketProcess in the process that started this one. While it
 * exists, a thread sends signs of life.
 */
class PacketWriter
{
public:
    /** Begins with @p hello. */
    explicit PacketWriter(const QString &hello);
    ~PacketWriter();

    /** Writes a packet with @p values. */
    template<typename... Values>
    void send(quint8 type, const Values &...values)
    {
        m_pack(values...);
        write(type, m_pack.take());
    }

    /** Writes @p records by their fields(), in as many packets as it takes. */
    template<typename Records>
    void sendAll(quint8 type, const Records &records)
    {
        for (int first = 0; first < records.size(); first += batchSize) {
            const int end = qMin(first + batchSize, records.size());
            for (int i = first; i < end; ++i) {
                std::apply(m_pack, Records::value_type::fields(records.at(i)));
            }
            write(type, m_pack.take());
        }
    }

private:
    Q_DISABLE_COPY(PacketWriter)

    class Output;
    class Heart;

    /** How many records are in a packet: few enough to be handled without a noticeable delay. */
    static constexpr int batchSize = 256;

    void write(quint8 type, const QByteArray &data);

    Packer m_pack;
    std::unique_ptr<Output> m_output;
    std::unique_ptr<Heart> m_heart;
};

#endif
