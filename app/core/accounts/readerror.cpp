/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "readerror.h"

#include <KLocalizedString>

#include <QFile>

QStringList accountReadErrors()
{
    QStringList errors;
    for (const auto &path : {QStringLiteral("/etc/passwd"), QStringLiteral("/etc/group")}) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            errors.append(i18n("Cannot read '%1': %2", path, file.errorString()));
        }
    }
    return errors;
}
