/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTFIXTURES_H
#define ACCOUNTFIXTURES_H

#include <QString>

inline QString passwdPath()
{
    return QStringLiteral("/etc/passwd");
}

inline QString groupPath()
{
    return QStringLiteral("/etc/group");
}

inline QString groupNotFound(const QString &name)
{
    return QStringLiteral("GroupInfo: unable to find group entry by name: ") + name;
}

inline QString noAdministrators()
{
    return groupNotFound(QStringLiteral("ormel-admin"));
}

inline QString groupUnableToOpen(const QString &path)
{
    return QStringLiteral("GroupInfo: unable to open ") + path;
}

inline QString userUnableToOpen(const QString &path)
{
    return QStringLiteral("UserInfo: unable to open ") + path;
}

#endif
