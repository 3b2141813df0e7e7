/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTCOLUMN_H
#define ACCOUNTCOLUMN_H

#include <KLazyLocalizedString>

#include <QJsonObject>
#include <QVariant>
#include <QVector>

/** A column that a list of accounts can have. */
template<typename Record>
struct AccountColumn {
    /** A word stays on one line; a text may wrap. */
    enum Kind { Number, Word, Text };

    /** The identifier for scripts, also the name in JSON and the heading in CSV. */
    const char *id;
    KLazyLocalizedString title;
    Kind kind;
    /** A text, a number, a Boolean or a list of names, decoded from the record. */
    QVariant (*value)(const Record &record);
};

template<typename Record>
using AccountColumns = QVector<const AccountColumn<Record> *>;

/** All of @p columns, in their order. */
template<typename Record, size_t count>
AccountColumns<Record> toColumns(const AccountColumn<Record> (&columns)[count])
{
    AccountColumns<Record> result;
    for (const AccountColumn<Record> &column : columns) {
        result.append(&column);
    }
    return result;
}

/** What a table shows of a value: names are separated by commas. */
QString columnText(const QVariant &value);

/** The same for scripts, in any language: Booleans are "true" and "false". */
QString columnCode(const QVariant &value);

/** The columns of @p record by their ids. */
template<typename Record>
QJsonObject toJson(const Record &record, const AccountColumns<Record> &columns)
{
    QJsonObject object;
    for (const AccountColumn<Record> *column : columns) {
        object.insert(QLatin1String(column->id), QJsonValue::fromVariant(column->value(record)));
    }
    return object;
}

#endif
