/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accounticons.h"

#include <QIcon>

namespace
{
/** Without an installation there is only the icon of the theme. */
QIcon ownIcon(const QString &name)
{
    return QIcon::fromTheme(QLatin1String("ormel-") + name, QIcon::fromTheme(name));
}
}

QIcon AccountIcons::user()
{
    return ownIcon(QStringLiteral("user"));
}

QIcon AccountIcons::systemUser()
{
    return ownIcon(QStringLiteral("user-system"));
}

QIcon AccountIcons::group()
{
    return ownIcon(QStringLiteral("group"));
}

QIcon AccountIcons::systemGroup()
{
    return ownIcon(QStringLiteral("group-system"));
}

QIcon AccountIcons::missing()
{
    return QIcon::fromTheme(QStringLiteral("dialog-warning"));
}
