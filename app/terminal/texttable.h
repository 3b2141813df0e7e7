/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef TEXTTABLE_H
#define TEXTTABLE_H

#include <QStringList>
#include <QVector>

/** Rows of text in aligned columns. */
class TextTable
{
public:
    struct Column {
        QString title;
        Qt::Alignment alignment = Qt::AlignLeft;
    };

    explicit TextTable(const QVector<Column> &columns);

    /** Adds a row with one cell for each column. */
    void addRow(const QStringList &cells);

    /**
     * The title row and the rows below it, one a line. A very long cell pushes the rest of its own
     * row to the right instead of widening its column. Characters that could steer a terminal are
     * shown as visible signs.
     */
    QString toString() const;

private:
    QVector<Column> m_columns;
    QVector<int> m_widths;
    QVector<QStringList> m_rows;
};

#endif
