/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ICONTHEME_H
#define ICONTHEME_H

#include <QStringList>
#include <QTemporaryDir>

/** Sets an icon theme with plain icons of the given names during its lifetime. */
class IconTheme
{
public:
    /** @param size the width and height of the icons */
    explicit IconTheme(const QStringList &names, int size = 16);
    ~IconTheme();

private:
    Q_DISABLE_COPY(IconTheme)

    QTemporaryDir m_directory;
    QStringList m_previousPaths;
    QString m_previousName;
};

#endif
