/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef BROKENACCOUNTS_H
#define BROKENACCOUNTS_H

#include <QByteArray>
#include <QMap>
#include <QMetaType>
#include <QStringList>
#include <QVector>

/** Account and limits files with problems, from brokenaccounts.txt. */
struct BrokenAccounts {
    QByteArray name;
    /** The whole content of each, by its path in /etc. */
    QMap<QString, QByteArray> files;
    /** The problems, as "file:line kind account", in the order in which they are reported. */
    QStringList problems;

    /** Ends the program when the cases cannot be read. */
    static QVector<BrokenAccounts> all();

    /** Writes the files to /etc. */
    void install() const;
};

Q_DECLARE_METATYPE(BrokenAccounts)

#endif
