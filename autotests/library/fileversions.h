/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef FILEVERSIONS_H
#define FILEVERSIONS_H

#include <QByteArrayList>
#include <QStringList>

// The contents of the files that change while they are read: version 0 or version 1.

constexpr int userCount = 6;

/** The accounts of one version: the same names, with other ids, members and homes. */
QByteArray passwdVersion(int version);
QByteArray groupVersion(int version);

QByteArray limitsVersion(int version);

QByteArray adduserVersion(int version);

/** The name patterns of both versions, and the default pattern. */
QStringList patterns();

QString facePath(int number);

/** Both versions. */
QByteArrayList versions(QByteArray (*version)(int));

/** All beginnings of all lines of @p texts, one per line. */
QByteArray beginnings(const QByteArrayList &texts);

/** Writes both account files. */
void setVersion(int version);

#endif
