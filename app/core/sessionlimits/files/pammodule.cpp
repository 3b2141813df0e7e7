/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "pammodule.h"

#include <QDir>
#include <QFile>

namespace
{
/** The program code of pam_limits; empty when it is not found. */
QByteArray moduleCode()
{
    QStringList folders{QStringLiteral("/usr/lib/security"), QStringLiteral("/lib/security")};
    for (const auto &parent : {QStringLiteral("/usr/lib"), QStringLiteral("/lib")}) {
        const QStringList names = QDir(parent).entryList({QStringLiteral("*-linux-gnu*")}, QDir::Dirs);
        for (const QString &name : names) {
            folders.append(parent + QLatin1Char('/') + name + QLatin1String("/security"));
        }
    }
    for (const QString &folder : qAsConst(folders)) {
        QFile file(folder + QLatin1String("/pam_limits.so"));
        if (file.open(QIODevice::ReadOnly)) {
            return file.readAll();
        }
    }
    return {};
}
}

PamLimits::Module PamLimits::Module::version1_5()
{
    return {1023, true, false, true, true};
}

PamLimits::Module PamLimits::Module::version1_7()
{
    return {};
}

PamLimits::Module PamLimits::Module::installed()
{
    // The earlier module reads lines with fgets(), the later one with getdelim().
    return moduleCode().contains(QByteArray("\0fgets\0", 7)) ? version1_5() : version1_7();
}
