/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITSFIXTURES_H
#define LIMITSFIXTURES_H

#include "filecontent.h"
#include "sandbox.h"

#include <LimitsParser>

#include <QDir>

inline QString limitsPath()
{
    return QStringLiteral("/etc/security/limits.conf");
}

inline QString dropInPath(const QString &name)
{
    return QStringLiteral("/etc/security/limits.d/") + name;
}

/** Leaves an empty limits.conf and no drop-ins. */
inline void clearLimits()
{
    Sandbox::clear(QStringLiteral("/etc/security"));
    Sandbox::clear(dropInPath(QString()));
    Sandbox::write(limitsPath(), QByteArray());
}

/** Installs the limits.conf and the limits.d of @p folder. */
inline void installLimits(const QString &folder)
{
    clearLimits();
    Sandbox::write(limitsPath(), contentOf(folder + QLatin1String("/limits.conf")));
    const QDir dropIns(folder + QLatin1String("/limits.d"));
    const QStringList names = dropIns.entryList(QDir::Files | QDir::Hidden);
    for (const QString &name : names) {
        Sandbox::write(dropInPath(name), contentOf(dropIns.filePath(name)));
    }
}

/** A parser that has read the current files. They must be readable. */
inline LimitsParser readLimits()
{
    LimitsParser limits;
    QString error;
    if (!limits.readLimitsConf(error)) {
        qFatal("%s", qPrintable(error));
    }
    return limits;
}

/** A parser that has read only @p rules. */
inline LimitsParser limitsOf(const QByteArray &rules)
{
    clearLimits();
    Sandbox::write(limitsPath(), rules);
    return readLimits();
}

#endif
