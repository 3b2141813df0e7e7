/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef TEXTS_H
#define TEXTS_H

#include <QJsonArray>
#include <QStringList>

/** A text without a QString::fromLatin1() around it. */
inline QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

inline QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

/** The strings of a JSON array. */
inline QStringList strings(const QJsonValue &array)
{
    return array.toVariant().toStringList();
}

#endif
