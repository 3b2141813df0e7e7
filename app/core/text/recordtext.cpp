/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "recordtext.h"

#include <algorithm>

namespace
{
constexpr ushort lastAscii = 0x7f;
constexpr ushort lastLatin1 = 0xff;

bool isWithin(const QString &text, ushort last)
{
    return std::all_of(text.begin(), text.end(), [last](QChar character) { return character.unicode() <= last; });
}
}

QString RecordText::decode(const QString &record)
{
    if (isWithin(record, lastAscii) || !isWithin(record, lastLatin1)) {
        return record;
    }
    const QByteArray bytes = record.toLatin1();
    QString text = QString::fromUtf8(bytes);
    return text.toUtf8() == bytes ? text : record;
}

QStringList RecordText::decode(QStringList records)
{
    std::transform(
        records.begin(), records.end(), records.begin(), [](const QString &record) { return decode(record); });
    return records;
}

QStringList RecordText::encode(const QString &text)
{
    const QString utf8 = QString::fromLatin1(text.toUtf8());
    // Bytes that are no UTF-8 were read as Latin-1.
    return utf8 == text || !isWithin(text, lastLatin1) ? QStringList{utf8} : QStringList{utf8, text};
}
