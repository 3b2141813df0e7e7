/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ROWTABLE_H
#define ROWTABLE_H

#include <QStringList>
#include <QVariant>
#include <QVector>

/** Rows of a list, to be copied or written to a file. */
struct RowTable {
    struct Cell {
        /** What the list shows. */
        QString text;
        /** The value behind it: a text, a list of texts, a number or a Boolean. */
        QVariant value;
    };

    /** An identifier and a title for each column. */
    QStringList ids;
    QStringList titles;
    QVector<QVector<Cell>> rows;

    /** A line for each row, with tabs between the cells. */
    QString toText() const;

    /**
     * Lines as in RFC 4180, the titles first. Other users have chosen these texts, so one that a spreadsheet
     * would take for a formula gets an apostrophe in front.
     */
    QString toCsv() const;

    /** An array with an object for each row. */
    QByteArray toJson() const;
};

#endif
