/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "texttable.h"

#include "visibletext.h"

#include <algorithm>

namespace
{
constexpr int widestColumn = 60;
}

TextTable::TextTable(const QVector<Column> &columns)
    : m_columns(columns)
    , m_widths(columns.size())
{
    QStringList titles;
    for (const Column &column : columns) {
        titles.append(column.title);
    }
    addRow(titles);
}

void TextTable::addRow(const QStringList &cells)
{
    QStringList row;
    row.reserve(cells.size());
    for (int i = 0; i < cells.size(); ++i) {
        row.append(VisibleText::fromText(cells.at(i)));
        m_widths[i] = std::clamp(row.at(i).size(), m_widths.at(i), widestColumn);
    }
    m_rows.append(row);
}

QString TextTable::toString() const
{
    QString text;
    for (const QStringList &row : m_rows) {
        QString line;
        for (int i = 0; i < row.size(); ++i) {
            const bool right = m_columns.at(i).alignment.testFlag(Qt::AlignRight);
            line += right ? row.at(i).rightJustified(m_widths.at(i)) : row.at(i).leftJustified(m_widths.at(i));
            line += QLatin1String("  ");
        }
        while (line.endsWith(QLatin1Char(' '))) {
            line.chop(1);
        }
        text += line + QLatin1Char('\n');
    }
    return text;
}
