/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTLISTING_H
#define ACCOUNTLISTING_H

#include "accountcolumn.h"
#include "command.h"
#include "csv.h"
#include "texttable.h"
#include "visibletext.h"

#include <QJsonArray>
#include <QJsonDocument>

/** How a list of accounts is printed, and with which columns. */
struct ListingFormat {
    enum Kind { Table, Json, Csv };

    Kind kind = Table;
    /** The ids of the columns; empty for the default ones. */
    QStringList columns;

    /** --columns, --json and --csv. */
    static QList<QCommandLineOption> options();

    /** Reads the options; UsageError, with a message, when they are wrong. @p allColumns are those to choose from. */
    int read(const QCommandLineParser &options, const QStringList &allColumns);
};

template<typename Record>
QStringList columnIds(const AccountColumns<Record> &columns)
{
    QStringList ids;
    for (const AccountColumn<Record> *column : columns) {
        ids.append(QLatin1String(column->id));
    }
    return ids;
}

/** Those of @p columns with the @p ids, in the order of the ids. */
template<typename Record>
AccountColumns<Record> chosenColumns(const AccountColumns<Record> &columns, const QStringList &ids)
{
    const QStringList allIds = columnIds(columns);
    AccountColumns<Record> result;
    for (const QString &id : ids) {
        result.append(columns.at(allIds.indexOf(id)));
    }
    return result;
}

/** @p text is columnText() or columnCode(). */
template<typename Record>
QStringList rowOf(const Record &record, const AccountColumns<Record> &columns, QString (*text)(const QVariant &value))
{
    QStringList cells;
    for (const AccountColumn<Record> *column : columns) {
        cells.append(text(column->value(record)));
    }
    return cells;
}

template<typename Record>
int printTable(const QList<Record> &records, const AccountColumns<Record> &columns)
{
    QVector<TextTable::Column> titles;
    for (const AccountColumn<Record> *column : columns) {
        using Column = AccountColumn<Record>;
        const Qt::Alignment alignment = column->kind == Column::Number ? Qt::AlignRight : Qt::AlignLeft;
        titles.append({column->title.toString(), alignment, column->kind == Column::Text});
    }
    TextTable table(titles);
    for (const Record &record : records) {
        table.addRow(rowOf(record, columns, columnText));
    }
    return print(table.toString());
}

template<typename Record>
int printCsv(const QList<Record> &records, const AccountColumns<Record> &columns)
{
    QString text = csvLine(columnIds(columns));
    for (const Record &record : records) {
        text += csvLine(rowOf(record, columns, columnCode));
    }
    return print(text.toUtf8());
}

template<typename Record>
int printJson(const QList<Record> &records, const AccountColumns<Record> &columns)
{
    QJsonArray array;
    for (const Record &record : records) {
        array.append(toJson(record, columns));
    }
    return print(VisibleText::fromJson(QJsonDocument(array).toJson()));
}

#endif
