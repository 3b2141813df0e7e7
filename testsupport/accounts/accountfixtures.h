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

inline QString adduserConfPath()
{
    return QStringLiteral("/etc/adduser.conf");
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

/** Lines of /etc/passwd for user0 with the uid 1000, user1 with 1001 and so on, with the primary group staff. */
inline QByteArray manyUsers(int count)
{
    QByteArray lines;
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        lines += "user" + number + ":x:" + QByteArray::number(1000 + i) + ":50:User " + number + ":/home/user" + number
            + ":/bin/bash\n";
    }
    return lines;
}

/** Lines of /etc/group for group0 with the gid 1000, group1 with 1001 and so on, each with the member @p member. */
inline QByteArray manyGroups(int count, const QByteArray &member = {})
{
    QByteArray lines;
    for (int i = 0; i < count; ++i) {
        lines += "group" + QByteArray::number(i) + ":x:" + QByteArray::number(1000 + i) + ':' + member + '\n';
    }
    return lines;
}

#endif
