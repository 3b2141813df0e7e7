/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef TEXTTABLE_H
#define TEXTTABLE_H

#include <QStringList>
#include <QVector>

/** Rows of text in aligned columns. Invisible characters are replaced by signs. */
class TextTable
{
public:
    struct Column {
        QString title;
        Qt::Alignment alignment = Qt::AlignLeft;
        /** Whether cells may wrap. */
        bool wraps = true;
    };

    explicit TextTable(const QVector<Column> &columns);

    /** Adds a row with one cell for each column. */
    void addRow(const QStringList &cells);

    /** The title row and the rows below it, for a terminal of this width. */
    QString toString() const;

private:
    QVector<Column> m_columns;
    QVector<QStringList> m_rows;
};

#endif
