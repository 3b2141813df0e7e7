/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITSPROGRAM_H
#define LIMITSPROGRAM_H

#include "limitsfixtures.h"
#include "program.h"

struct Result {
    int status = -1;
    QString output;
    QString errors;
};

/** Runs "ormel-users limits" with @p options. */
inline Result limits(const QStringList &options)
{
    const Program::Result result = Program::run(QStringList(QStringLiteral("limits")) + options);
    return {result.status, QString::fromUtf8(result.output), QString::fromUtf8(result.errors)};
}

inline Result limitsOf(const char *option, const char *name, const QStringList &more = {})
{
    return limits(QStringList{QLatin1String(option), QLatin1String(name)} + more);
}

inline QString explain()
{
    return QStringLiteral("--explain");
}

inline QString json()
{
    return QStringLiteral("--json");
}

inline QString parser()
{
    return QStringLiteral("--parser");
}

/** The line of @p output that begins with @p word, its columns separated by "|". */
inline QString row(const QString &output, const char *word)
{
    const QStringList lines = output.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        QStringList cells = line.split(QLatin1String("  "), Qt::SkipEmptyParts);
        for (QString &cell : cells) {
            cell = cell.trimmed();
        }
        if (cells.value(0) == QLatin1String(word)) {
            return cells.join(QLatin1Char('|'));
        }
    }
    return {};
}

/** Accounts and rules for the limits command. */
inline void setLimitsOfPupils()
{
    Sandbox::removeExtraAccounts();
    Sandbox::setAccounts("root:x:0:0::/root:/bin/sh\nalice:x:1000:1000::/:\nbob:x:1001:1000::/:\n",
                         "root:x:0:\normel-admin:x:27:\nalice:x:1000:\npupils:x:50:alice\n");
    clearLimits();
    Sandbox::write(limitsPath(),
                   "* soft core 0\n"
                   "@pupils - nproc 60 # all\n"
                   "alice soft nproc 50\n");
}

#endif
