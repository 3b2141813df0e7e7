/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTMODEL_H
#define ACCOUNTMODEL_H

#include <QHash>
#include <QStringList>
#include <QVector>

struct group;
struct passwd;

/** The results and warnings of lookups that are made one by one. */
class AccountModel
{
public:
    QStringList warnings;

    /** The records as texts of describe(). */
    QStringList users();
    QStringList groups();

private:
    struct Group {
        QString name;
        QStringList users;
        uint gid = 0;

        bool operator==(const Group &other) const
        {
            return name == other.name && gid == other.gid && users == other.users;
        }
    };

    static QString shown(const QString &text);
    static QString text(const Group &group);
    QString user(const passwd *entry);
    QVector<Group> userGroups(const passwd *entry);
    Group groupByName(const QString &name);
    Group completed(const ::group *entry, const QHash<uint, QStringList> &primary);
    QHash<uint, QStringList> primaryGroups();
};

#endif
