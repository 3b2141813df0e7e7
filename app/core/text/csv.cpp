/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "csv.h"

#include "visibletext.h"

namespace
{
QString quoted(const QString &value)
{
    const bool isPlain = !value.contains(QLatin1Char('"')) && !value.contains(QLatin1Char(','))
        && !value.startsWith(QLatin1Char(' ')) && !value.endsWith(QLatin1Char(' '));
    if (isPlain) {
        return value;
    }
    QString escaped = value;
    escaped.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}
}

QString csvLine(const QStringList &values)
{
    QStringList cells;
    for (const QString &value : values) {
        cells.append(quoted(VisibleText::fromText(value)));
    }
    return cells.join(QLatin1Char(',')) + QLatin1Char('\n');
}
