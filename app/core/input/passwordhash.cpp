/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "passwordhash.h"

#include <UserUtils>

#include <KLocalizedString>

namespace
{
/** Without a GOST library nothing is hashed, not even an empty password. */
bool isGostAvailable()
{
    return !UserUtils::saltPassword(QString(), true).isEmpty();
}
}

PasswordHash makePasswordHash(const QString &password, bool useGost)
{
    const QString hash = UserUtils::saltPassword(password, useGost);
    if (!hash.isEmpty() && !hash.startsWith(QLatin1Char('*'))) {
        return {hash, QString()};
    }
    if (useGost && !isGostAvailable()) {
        return {QString(), i18n("The GOST method is not available on this machine.")};
    }
    return {QString(), i18n("The password cannot be hashed.")};
}
