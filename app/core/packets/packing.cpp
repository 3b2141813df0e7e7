/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "packing.h"

#include <QtEndian>

namespace
{
constexpr int numberSize = sizeof(quint32);
}

QByteArray Packer::take()
{
    return std::exchange(m_bytes, QByteArray());
}

void Packer::pack(bool value)
{
    m_bytes.append(value ? '\1' : '\0');
}

void Packer::pack(quint32 value)
{
    const quint32 bytes = qToLittleEndian(value);
    m_bytes.append(reinterpret_cast<const char *>(&bytes), numberSize);
}

void Packer::pack(const QString &text)
{
    const auto next = quint32(m_numbers.size());
    const quint32 number = m_numbers.value(text, next);
    pack(number);
    if (number == next) {
        m_numbers.insert(text, number);
        const QByteArray utf8 = text.toUtf8();
        pack(quint32(utf8.size()));
        m_bytes.append(utf8);
    }
}

void Packer::pack(const QStringList &texts)
{
    pack(quint32(texts.size()));
    for (const QString &text : texts) {
        pack(text);
    }
}

void Packer::pack(const QVector<quint32> &values)
{
    pack(quint32(values.size()));
    for (const quint32 value : values) {
        pack(value);
    }
}

void Unpacker::begin(const QByteArray &bytes)
{
    m_bytes = bytes;
    m_position = 0;
}

bool Unpacker::atEnd() const
{
    return !m_valid || m_position == m_bytes.size();
}

bool Unpacker::isValid() const
{
    return m_valid;
}

bool Unpacker::isDone() const
{
    return m_valid && atEnd();
}

void Unpacker::unpack(bool &value)
{
    m_valid = m_valid && m_position < m_bytes.size();
    value = m_valid && m_bytes.at(m_position++) != '\0';
}

void Unpacker::unpack(quint32 &value)
{
    value = number();
}

void Unpacker::unpack(QString &text)
{
    const quint32 index = number();
    const auto known = quint32(m_texts.size());
    m_valid = m_valid && index <= known;
    if (m_valid && index == known) {
        const quint32 length = number();
        m_valid = m_valid && length <= quint32(m_bytes.size() - m_position);
        if (m_valid) {
            m_texts.append(QString::fromUtf8(m_bytes.constData() + m_position, int(length)));
            m_position += int(length);
        }
    }
    text = m_valid ? m_texts.at(int(index)) : QString();
}

void Unpacker::unpack(QStringList &texts)
{
    const quint32 count = number();
    // Each text takes some bytes, so there cannot be more texts than bytes.
    m_valid = m_valid && count <= quint32(m_bytes.size() - m_position) / numberSize;
    texts.clear();
    if (m_valid) {
        texts.reserve(int(count));
    }
    for (quint32 i = 0; m_valid && i < count; ++i) {
        QString text;
        unpack(text);
        texts.append(text);
    }
}

void Unpacker::unpack(QVector<quint32> &values)
{
    const quint32 count = number();
    m_valid = m_valid && count <= quint32(m_bytes.size() - m_position) / numberSize;
    values.clear();
    if (m_valid) {
        values.reserve(int(count));
    }
    for (quint32 i = 0; m_valid && i < count; ++i) {
        values.append(number());
    }
}

quint32 Unpacker::number()
{
    m_valid = m_valid && m_bytes.size() - m_position >= numberSize;
    if (!m_valid) {
        return 0;
    }
    const auto value = qFromLittleEndian<quint32>(m_bytes.constData() + m_position);
    m_position += numberSize;
    return value;
}
