/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PACKING_H
#define PACKING_H

#include <QDataStream>
#include <QHash>
#include <QStringList>
#include <QVector>

#include <tuple>

/** Records as bytes. A text that was already packed, in any record, takes four bytes. */
class Packer
{
public:
    /** Packs @p values one after the other. */
    template<typename... Values>
    void operator()(const Values &...values)
    {
        (pack(values), ...);
    }

    /** What was packed since the last call. */
    QByteArray take();

private:
    void pack(bool value);
    void pack(quint32 value);
    void pack(const QString &text);
    void pack(const QStringList &texts);
    void pack(const QVector<quint32> &values);

    QHash<QString, quint32> m_numbers;
    QByteArray m_bytes;
};

/** Reads what a Packer has packed, in the same order. Equal texts are shared. */
class Unpacker
{
public:
    /** Goes on with @p bytes, one result of Packer::take(). */
    void begin(const QByteArray &bytes);

    template<typename... Values>
    void operator()(Values &...values)
    {
        (unpack(values), ...);
    }

    bool atEnd() const;

    /** Whether each read has found a value of the expected type. */
    bool isValid() const;

    /** Whether everything was read and had the expected type. */
    bool isDone() const;

    /** Reads the remaining records by their fields(); false when they are of another type. */
    template<typename Record>
    bool appendTo(QVector<Record> &records)
    {
        while (!atEnd()) {
            Record record;
            std::apply(*this, Record::fields(record));
            records.append(record);
        }
        return isValid();
    }

private:
    void unpack(bool &value);
    void unpack(quint32 &value);
    void unpack(QString &text);
    void unpack(QStringList &texts);
    void unpack(QVector<quint32> &values);
    quint32 number();

    QStringList m_texts;
    QByteArray m_bytes;
    int m_position = 0;
    bool m_valid = true;
};

#endif
