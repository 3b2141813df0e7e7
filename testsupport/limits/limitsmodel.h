/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITSMODEL_H
#define LIMITSMODEL_H

#include <GroupInfo>
#include <UserInfo>

#include <QVector>

#include <string>

/** A plain model of the reader and the lookup, which takes one byte and one rule after the other. */
class LimitsModel
{
public:
    /** Adds the rules of @p file. */
    void read(const QByteArray &file);

    /** The rules as texts of describe(). */
    QStringList rules() const;

    QString valueFor(const UserInfo &user, const QString &item) const;
    QString valueFor(const GroupInfo &group, const QString &item) const;

private:
    struct Rule {
        QString domain;
        QString type;
        QString item;
        QString value;
    };

    static bool isSpace(char byte);
    void addRule(std::string line);
    static QString valueOf(const QString &text);
    static int numberOf(QString text);
    static QString typeOf(const QString &item);
    static void addGroups(QStringList &domains, const QStringList &groups, const QString &item);

    /** Whether @p domain begins with two slashes, any number of the letter d, a colon and two slashes. */
    static bool namesIds(const QString &domain, const QString &sign);

    QString firstOf(const QStringList &domains, const QString &item, bool isUser0 = false, bool isGroup0 = false) const;

    QVector<Rule> m_rules;
};

#endif
