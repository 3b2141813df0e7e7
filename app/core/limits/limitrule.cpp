/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitrule.h"

#include <LimitsParser>

#include <QRegularExpression>

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

/** The domain of the first rule whose domain @p range matches; null when there is none. */
QString rangeDomain(const LimitsParser &limits, const QRegularExpression &range, const QString &item)
{
    const QList<LimitsParser::Field> rules = limits.fields();
    const auto found = std::find_if(rules.begin(), rules.end(), [&](const LimitsParser::Field &rule) {
        return rule.item == item && range.match(rule.domain).hasMatch();
    });
    return found == rules.end() ? QString() : found->domain;
}

// What LimitsParser takes for a range has slashes where numbers would be, which count as 0: no
// other id is in it.

QString userRangeDomain(const LimitsParser &limits, uint uid, const QString &item)
{
    static const QRegularExpression range(QStringLiteral("^//d*://"));
    return uid == 0 ? rangeDomain(limits, range, item) : QString();
}

QString groupRangeDomain(const LimitsParser &limits, uint gid, const QString &item)
{
    static const QRegularExpression range(QStringLiteral("^@//d*://"));
    return gid == 0 ? rangeDomain(limits, range, item) : QString();
}

/** The first of @p domains that has a rule. */
QString firstWithRule(const LimitsParser &limits, const QStringList &domains, const QString &item)
{
    const auto found = std::find_if(domains.begin(), domains.end(), [&](const QString &domain) {
        return !limits.findField(domain, item).isNull();
    });
    return found == domains.end() ? QString() : *found;
}

QString everybody()
{
    return QStringLiteral("*");
}
}

QString LimitRule::domain(const LimitsParser &limits, const User &user, const QString &item)
{
    QStringList domains{user.name};
    if (user.name != QLatin1String("root")) {
        domains += groupDomains(user.groups, item);
        domains += userRangeDomain(limits, user.uid, item);
        domains += groupRangeDomain(limits, user.gid, item);
        domains += everybody();
    }
    return firstWithRule(limits, domains, item);
}

QString LimitRule::domain(const LimitsParser &limits, const Group &group, const QString &item)
{
    QStringList domains = groupDomains({group.name}, item);
    domains += groupRangeDomain(limits, group.gid, item);
    domains += everybody();
    return firstWithRule(limits, domains, item);
}
