/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsparser.h"

#include "groupinfo.h"
#include "idrange_p.h"
#include "userinfo.h"

#include <algorithm>

namespace
{
using Rules = QList<LimitsParser::Field>;

/** The value of the first rule for @p item whose domain @p applies. */
template<typename Predicate>
QVariant firstValue(const Rules &rules, const QString &item, Predicate applies)
{
    const auto found = std::find_if(rules.begin(), rules.end(), [&](const LimitsParser::Field &rule) {
        return rule.item == item && applies(rule.domain);
    });
    return found == rules.end() ? QVariant() : found->value;
}

QVariant valueOfName(const Rules &rules, const QString &name, const QString &item)
{
    return firstValue(rules, item, [&name](const QString &domain) { return domain == name; });
}

/** The value for the first group of @p names that has a rule with @p sign before the name. */
QVariant valueOfGroups(const Rules &rules, QChar sign, const QStringList &names, const QString &item)
{
    for (const QString &name : names) {
        QVariant value = valueOfName(rules, sign + name, item);
        if (!value.isNull()) {
            return value;
        }
    }
    return {};
}

/** The value for one of the groups @p names. Only logins are counted for a whole group, with "%". */
QVariant valueOfGroups(const Rules &rules, const QStringList &names, const QString &item)
{
    QVariant value = valueOfGroups(rules, QLatin1Char('@'), names, item);
    if (!value.isNull() || item != QLatin1String("maxlogins")) {
        return value;
    }
    return valueOfGroups(rules, QLatin1Char('%'), names, item);
}

QVariant valueOfEverybody(const Rules &rules, const QString &item)
{
    return valueOfName(rules, QStringLiteral("*"), item);
}

bool appliesToUserId(const QString &domain, const UserInfo &user)
{
    const IdRange ids = userIds(domain);
    return ids.isId(user.uid()) || ids.contains(user.uid());
}

/** A single id may be that of any group of the user; a range is compared with the primary group only. */
bool appliesToGroupIdsOf(const QString &domain, const UserInfo &user)
{
    const IdRange ids = groupIds(domain);
    const QList<GroupInfo> &groups = user.groups();
    return ids.contains(user.gid())
        || std::any_of(groups.begin(), groups.end(), [&ids](const GroupInfo &group) { return ids.isId(group.gid()); });
}
}

QVariant LimitsParser::findField(const QString &domain, const QString &item) const
{
    return valueOfName(m_fields, domain, item);
}

QVariant LimitsParser::getItem(const UserInfo &user, const QString &item) const
{
    QVariant value = valueOfName(m_fields, user.name(), item);
    if (user.name() == QLatin1String("root")) {
        return value;
    }
    if (value.isNull()) {
        value = valueOfGroups(m_fields, user.groupNames(), item);
    }
    if (value.isNull()) {
        value = firstValue(m_fields, item, [&user](const QString &domain) { return appliesToUserId(domain, user); });
    }
    if (value.isNull()) {
        value =
            firstValue(m_fields, item, [&user](const QString &domain) { return appliesToGroupIdsOf(domain, user); });
    }
    return value.isNull() ? valueOfEverybody(m_fields, item) : value;
}

QVariant LimitsParser::getItem(const GroupInfo &group, const QString &item) const
{
    QVariant value = valueOfGroups(m_fields, {group.name()}, item);
    if (value.isNull()) {
        value = firstValue(
            m_fields, item, [&group](const QString &domain) { return groupIds(domain).contains(group.gid()); });
    }
    return value.isNull() ? valueOfEverybody(m_fields, item) : value;
}
