/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "encryptmethod.h"

#include "visibletext.h"

#include <KLocalizedString>

#include <QFile>

namespace
{
/** The last value that /etc/login.defs gives; empty when there is none. */
QString encryptMethod()
{
    QFile file(QStringLiteral("/etc/login.defs"));
    QString method;
    if (!file.open(QIODevice::ReadOnly)) {
        return method;
    }
    while (!file.atEnd()) {
        const QStringList words = QString::fromUtf8(file.readLine()).simplified().split(QLatin1Char(' '));
        if (words.size() > 1 && words.first() == QLatin1String("ENCRYPT_METHOD")) {
            method = words.at(1);
        }
    }
    return method;
}
}

QString encryptMethodNote()
{
    const QString method = encryptMethod();
    if (method.isEmpty()) {
        return i18n("/etc/login.defs does not say with which method this system hashes passwords.");
    }
    if (method == QLatin1String("SHA512")) {
        return i18n("This system hashes passwords with SHA-512 (ENCRYPT_METHOD in /etc/login.defs).");
    }
    return i18n(
        "This system hashes passwords with %1 (ENCRYPT_METHOD in /etc/login.defs), which is neither of these methods.",
        VisibleText::isolated(method == QLatin1String("YESCRYPT") ? QStringLiteral("yescrypt") : method));
}
