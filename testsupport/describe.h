/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef DESCRIBE_H
#define DESCRIBE_H

#include <GroupInfo>
#include <LimitsParser>
#include <UserInfo>

/** A record as one line of text, to be shown by a failed comparison. Null strings are shown as "null". */
QString describe(const GroupInfo &group);
QString describe(const UserInfo &user);
QString describe(const LimitsParser::Field &rule);
QString describe(const LimitsParser::FieldDescriptor &descriptor);

/** The type of a value and its text. */
QString describe(const QVariant &value);

template<typename Record>
QStringList describe(const QList<Record> &records)
{
    QStringList lines;
    for (const Record &record : records) {
        lines.append(describe(record));
    }
    return lines;
}

#endif
