/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitrule.h"

#include <GroupInfo>
#include <LimitsParser>
#include <UserInfo>

#include <algorithm>

namespace
{
/** The domains of rules for one of @p groups, in the order in which they are looked up. */
QStringList groupDomains(const QStringList &groups, const QString &item)
{
    QStringList domains;
    for (const QString &group : groups) {
        domains.append(QLatin1Char('@') + group);
    }
    if (item == QLatin1String("maxlogins")) {
        for (const QString &group : groups) {
            domains.append(QLatin1Char('%') + group);
        }
    }
    return domains;
}

/** The first of @p names that has a rule; otherwise it is a rule for ids or for everybody that gave @p value. */
QString domainOf(const LimitsParser &limits, const QStringList &names, const QString &item, const QVariant &value)
{
    const auto named = std::find_if(
        names.begin(), names.end(), [&](const QString &name) { return !limits.findField(name, item).isNull(); });
    if (named != names.end()) {
        return *named;
    }
    QString everybody = QStringLiteral("*");
    if (limits.findField(everybody, item) == value) {
        return everybody;
    }
    const QList<LimitsParser::Field> rules = limits.fields();
    const auto forIds = std::find_if(rules.begin(), rules.end(), [&](const LimitsParser::Field &rule) {
        return rule.item == item && rule.value == value && rule.domain.contains(QLatin1Char(':'));
    });
    return forIds == rules.end() ? QString() : forIds->domain;
}
}

QString LimitRule::domain(const LimitsParser &limits, const UserInfo &user, const QString &item, const QVariant &value)
{
    const QStringList names = QStringList(user.name()) + groupDomains(user.groupNames(), item);
    return domainOf(limits, names, item, value);
}

QString
LimitRule::domain(const LimitsParser &limits, const GroupInfo &group, const QString &item, const QVariant &value)
{
    return domainOf(limits, groupDomains({group.name()}, item), item, value);
}
