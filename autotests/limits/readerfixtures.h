/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef READERFIXTURES_H
#define READERFIXTURES_H

#include "limitsfixtures.h"

#include <unistd.h>

/** The error string before reading. */
inline constexpr char untouched[] = "untouched";

inline QString securityPath(const char *name)
{
    return QStringLiteral("/etc/security/") + QLatin1String(name);
}

inline void link(const QString &target, const QString &path)
{
    if (::symlink(qPrintable(target), qPrintable(path)) != 0) {
        qFatal("Cannot link %s", qPrintable(path));
    }
}

inline void writeDropIn(const char *name, const QByteArray &content)
{
    Sandbox::write(dropInPath(QLatin1String(name)), content);
}

/** The values of the rules. The tests use them as numbers of the rules. */
inline QString values(const LimitsParser &limits)
{
    QStringList texts;
    const QList<LimitsParser::Field> rules = limits.fields();
    for (const LimitsParser::Field &rule : rules) {
        texts.append(rule.value.toString());
    }
    return texts.join(QLatin1Char(' '));
}

/** The error of a read that has to fail. */
inline QString failure(LimitsParser &limits)
{
    QString error = QLatin1String(untouched);
    return limits.readLimitsConf(error) ? QStringLiteral("no failure") : error;
}

#endif
