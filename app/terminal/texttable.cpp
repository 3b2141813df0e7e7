/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "texttable.h"

#include "visibletext.h"

#include <cstdlib>
#include <memory>

#include <libsmartcols.h>

namespace
{
struct TableDeleter {
    void operator()(libscols_table *table) const
    {
        scols_unref_table(table);
    }
};

struct Freer {
    void operator()(char *text) const
    {
        free(text);
    }
};

/** The lines of @p text that are not blank, each with an end. */
QString withoutBlanks(const QString &text)
{
    QString result;
    const QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString line : lines) {
        while (line.endsWith(QLatin1Char(' '))) {
            line.chop(1);
        }
        if (!line.isEmpty()) {
            result += line + QLatin1Char('\n');
        }
    }
    return result;
}
}

TextTable::TextTable(const QVector<Column> &columns)
    : m_columns(columns)
{
}

void TextTable::addRow(const QStringList &cells)
{
    m_rows.append(cells);
}

QString TextTable::toString() const
{
    const std::unique_ptr<libscols_table, TableDeleter> table(scols_new_table());
    scols_table_set_column_separator(table.get(), "  ");
    for (const Column &column : m_columns) {
        const int flags =
            (column.alignment.testFlag(Qt::AlignRight) ? SCOLS_FL_RIGHT : 0) | (column.wraps ? SCOLS_FL_WRAP : 0);
        scols_table_new_column(table.get(), column.title.toLocal8Bit().constData(), 0, flags);
    }
    for (const QStringList &row : m_rows) {
        libscols_line *line = scols_table_new_line(table.get(), nullptr);
        for (int i = 0; i < row.size(); ++i) {
            const QByteArray cell = VisibleText::fromText(row.at(i)).toLocal8Bit();
            scols_line_set_data(line, size_t(i), cell.constData());
        }
    }
    if (m_rows.isEmpty()) {
        // Without rows the library leaves out the titles.
        scols_table_new_line(table.get(), nullptr);
    }
    char *text = nullptr;
    scols_print_table_to_string(table.get(), &text);
    const std::unique_ptr<char, Freer> owner(text);
    return withoutBlanks(QString::fromLocal8Bit(text));
}
