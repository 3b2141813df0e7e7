/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef NEWACCOUNTCHECK_H
#define NEWACCOUNTCHECK_H

#include "accountrecords.h"

#include <QHash>
#include <QSet>

#include <memory>

class QValidator;

/** Checks what is typed for a new account, by the rules for names and against the accounts that there are. */
class NewAccountCheck
{
public:
    /** What to say about a text. */
    struct Note {
        QString text;
        /** Whether no account can be created with it. */
        bool isRefused = false;
    };

    /** A check that knows no accounts. */
    NewAccountCheck();
    ~NewAccountCheck();

    /** Reads the rule for user names, which the administrator can change. */
    void readRules();

    void setUsers(const QVector<UserRecord> &users);
    void setGroups(const QVector<GroupRecord> &groups);

    bool hasGroup(const QString &name) const;

    /** @param group what is typed for the primary group */
    Note userName(const QString &name, const QString &group) const;
    Note groupName(const QString &name) const;
    Note uid(const QString &number) const;

    /** @param takesEquals whether chfn accepts an equals sign in this field */
    Note gecosField(const QString &text, bool takesEquals) const;

private:
    std::unique_ptr<QValidator> m_userNames;
    const std::unique_ptr<QValidator> m_groupNames;
    const std::unique_ptr<QValidator> m_gecos;
    QSet<QString> m_users;
    QSet<QString> m_groups;
    QHash<uint, QString> m_uids;
};

#endif
