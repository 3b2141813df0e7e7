/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LISTEDACCOUNTS_H
#define LISTEDACCOUNTS_H

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

inline const char usersFile[] = "root:x:0:0:root:/root:/bin/bash\n"
                                "alice:x:1000:1000:Alice \xd0\x96,,,:/home/alice:/bin/bash\n"
                                "bob:x:1001:4711:Bob:/home/bob:/bin/zsh\n"
                                "nobody:x:65534:65534:nobody:/nonexistent:/usr/sbin/nologin\n";

inline const char groupsFile[] = "root:x:0:\n"
                                 "ormel-admin:x:27:alice\n"
                                 "audio:x:29:bob,alice\n"
                                 "alice:x:1000:\n"
                                 "nogroup:x:65534:\n";

inline QJsonArray jsonArray(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).array();
}

inline QString string(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key)).toString();
}

inline QString number(const QJsonObject &object, const char *key)
{
    return QString::number(static_cast<qint64>(object.value(QLatin1String(key)).toDouble(-1)));
}

inline QStringList strings(const QJsonObject &object, const char *key)
{
    QStringList list;
    const QJsonArray array = object.value(QLatin1String(key)).toArray();
    for (const QJsonValue &value : array) {
        list.append(value.toString());
    }
    return list;
}

#endif
