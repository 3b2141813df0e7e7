/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "gunzip.h"

#include <array>

#include <zlib.h>

namespace
{
/** Makes zlib expect the header of gzip. */
constexpr int gzipWindow = 15 + 16;
}

bool isGzipped(const QByteArray &data)
{
    return data.startsWith("\x1f\x8b");
}

QByteArray gunzip(const QByteArray &data, qint64 longest)
{
    z_stream stream = {};
    if (inflateInit2(&stream, gzipWindow) != Z_OK) {
        return {};
    }
    stream.next_in = reinterpret_cast<const Bytef *>(data.constData());
    stream.avail_in = uInt(data.size());
    QByteArray result;
    std::array<char, 1 << 16> part{};
    int status = Z_OK;
    while (status == Z_OK && result.size() < longest) {
        stream.next_out = reinterpret_cast<Bytef *>(part.data());
        stream.avail_out = uInt(part.size());
        status = inflate(&stream, Z_NO_FLUSH);
        const qint64 unpacked = qint64(part.size()) - stream.avail_out;
        result.append(part.data(), int(qMin(unpacked, longest - result.size())));
    }
    inflateEnd(&stream);
    const bool isWhole = status == Z_STREAM_END && stream.avail_in == 0;
    const bool endsEarly = status == Z_OK || status == Z_BUF_ERROR;
    return isWhole || endsEarly ? result : QByteArray();
}
