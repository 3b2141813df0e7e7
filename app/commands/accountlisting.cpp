/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountlisting.h"

#include <KLocalizedString>

#include <QCommandLineParser>

#include <algorithm>

namespace
{
QString columnsOption()
{
    return QStringLiteral("columns");
}

QString csvOption()
{
    return QStringLiteral("csv");
}
}

QList<QCommandLineOption> ListingFormat::options()
{
    return {
        {columnsOption(),
         i18n("The columns to print, separated by commas. An unknown name lists the available ones."),
         i18n("list")},
        {jsonOption(), i18n("Print JSON instead of a table.")},
        {csvOption(), i18n("Print comma-separated values instead of a table.")},
    };
}

int ListingFormat::read(const QCommandLineParser &options, const QStringList &allColumns)
{
    if (options.isSet(jsonOption()) && options.isSet(csvOption())) {
        return usageError(i18n("Only one of --json and --csv can be given."));
    }
    kind = options.isSet(jsonOption()) ? Json : options.isSet(csvOption()) ? Csv : Table;
    if (!options.isSet(columnsOption())) {
        return Success;
    }
    columns = options.value(columnsOption()).split(QLatin1Char(','));
    const auto unknown = std::find_if_not(
        columns.begin(), columns.end(), [&allColumns](const QString &id) { return allColumns.contains(id); });
    if (unknown != columns.end()) {
        return usageError(i18n(
            "--columns: There is no column '%1'. The columns are %2.", *unknown, allColumns.join(QLatin1Char(','))));
    }
    return Success;
}
