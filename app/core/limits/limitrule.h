/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITRULE_H
#define LIMITRULE_H

#include <QStringList>

class LimitsParser;

/** Finds the rules from which LimitsParser::getItem() has its values, without a look at the accounts. */
namespace LimitRule
{
/** What counts of a user. */
struct User {
    QString name;
    QStringList groups;
    uint uid = 0;
    uint gid = 0;
};

/** What counts of a group. */
struct Group {
    QString name;
    uint gid = 0;
};

/** The domain of the rule that LimitsParser takes for @p item; null when there is none. */
QString domain(const LimitsParser &limits, const User &user, const QString &item);
QString domain(const LimitsParser &limits, const Group &group, const QString &item);
}

#endif
