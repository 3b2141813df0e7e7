/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERICONFIXTURES_H
#define USERICONFIXTURES_H

#include "randomscript.h"
#include "sandbox.h"

#include <UserUtils>

#include <QDir>

#include <initializer_list>

inline QString inKiv(const char *name)
{
    return QStringLiteral("/usr/share/kiv/%1").arg(QLatin1String(name));
}

inline QString inFaces(const char *name)
{
    return QStringLiteral("/usr/share/kiv/faces/%1").arg(QLatin1String(name));
}

/** Creates empty files and their directories. */
inline void make(const QStringList &paths)
{
    for (const QString &path : paths) {
        QDir().mkpath(QFileInfo(path).path());
        Sandbox::write(path, "");
    }
}

inline void makeFaces(std::initializer_list<const char *> names)
{
    QDir().mkpath(UserUtils::userIconPath());
    for (const char *name : names) {
        make({inFaces(name)});
    }
}

/** The lowest and the highest random number that picks @p index of @p count. */
inline quint32 lowestDraw(int index, int count)
{
    return quint32(((quint64(index) << 32) + quint64(count) - 1) / quint64(count));
}

inline quint32 highestDraw(int index, int count)
{
    return quint32(((quint64(index + 1) << 32) - 1) / quint64(count));
}

/** The pictures at each index of @p count candidates. */
inline QStringList picks(int count, bool preferDefault = false)
{
    QStringList names;
    for (int i = 0; i < count; ++i) {
        const RandomScript random({lowestDraw(i, count), highestDraw(i, count)});
        const QString icon = UserUtils::getRandomUserIcon(preferDefault);
        if (UserUtils::getRandomUserIcon(preferDefault) != icon) {
            return {QStringLiteral("not %1 candidates").arg(count)};
        }
        names.append(icon);
    }
    return names;
}

/** The names in @p directory in Qt's unsorted order. */
inline QStringList listed(const char *directory, QDir::Filters filters = QDir::Files)
{
    return QDir(inFaces(directory)).entryList(filters, QDir::NoSort);
}

#endif
