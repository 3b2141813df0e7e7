/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "csv.h"

#include "visibletext.h"

#include <algorithm>

namespace
{
constexpr QChar quote(u'"');

bool isSpecial(QChar character)
{
    return QStringLiteral("\",\n\r").contains(character);
}
}

QString csvQuoted(const QString &value)
{
    QString escaped = value;
    escaped.replace(quote, QStringLiteral("\"\""));
    return quote + escaped + quote;
}

QString csvField(const QString &value)
{
    const bool needsQuotes = value.startsWith(QLatin1Char(' ')) || value.endsWith(QLatin1Char(' '))
        || std::any_of(value.begin(), value.end(), isSpecial);
    return needsQuotes ? csvQuoted(value) : value;
}

QString csvLine(const QStringList &values)
{
    QStringList cells;
    for (const QString &value : values) {
        cells.append(csvField(VisibleText::fromText(value)));
    }
    return cells.join(QLatin1Char(',')) + QLatin1Char('\n');
}
