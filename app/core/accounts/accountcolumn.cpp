/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountcolumn.h"

#include <KLocalizedString>

QString columnText(const QVariant &value)
{
    if (value.type() == QVariant::Bool) {
        return value.toBool() ? i18n("yes") : i18n("no");
    }
    return columnCode(value);
}

QString columnCode(const QVariant &value)
{
    if (value.type() == QVariant::StringList) {
        return value.toStringList().join(QLatin1Char(','));
    }
    return value.toString();
}
