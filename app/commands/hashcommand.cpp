/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "hashcommand.h"

#include "passwordhash.h"
#include "passwordinput.h"

#include <KLocalizedString>

#include <QCommandLineParser>

namespace
{
QString gostOption()
{
    return QStringLiteral("gost");
}
}

QList<QCommandLineOption> hashOptions()
{
    return {QCommandLineOption(gostOption(), i18n("Hash with GOST R 34.11-2012 instead of SHA-512."))};
}

int hashPassword(const QCommandLineParser &options, const QString & /*operand*/)
{
    const QByteArray line = readPassword(i18n("Password: "));
    if (line.isNull()) {
        return failure(i18n("No password was given."));
    }
    // A hash of anything but the given password would lock the user out.
    const QString password = QString::fromUtf8(line);
    if (password.toUtf8() != line || line.contains('\0')) {
        return failure(i18n("The password is not UTF-8 text."));
    }
    const PasswordHash result = makePasswordHash(password, options.isSet(gostOption()));
    if (!result.error.isEmpty()) {
        return failure(result.error);
    }
    return print(QString(result.hash + QLatin1Char('\n')));
}
