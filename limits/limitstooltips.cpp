/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsparser.h"

#include "idrange_p.h"

#include <KLocalizedString>

#include <QHash>

namespace
{
/** @p value with its unit. A number given to subs() would have its digits grouped. */
QString withUnit(const KLocalizedString &text, const QVariant &value)
{
    return text.subs(QString::number(value.toInt())).toString();
}
}

QString LimitsParser::valueToString(const QVariant &value, const QString &item)
{
    switch (valueType(item)) {
    case Bytes:
        return withUnit(ki18n("%1 Bytes"), value);
    case KiloBytes:
        return withUnit(ki18n("%1 KB"), value);
    case Minutes:
        return withUnit(ki18n("%1 Minutes"), value);
    case Boolean:
        return value.toInt() == 1 ? i18n("Enabled") : i18n("Disabled");
    default:
        return value.toString();
    }
}

QString LimitsParser::itemToolTip(const QString &item)
{
    QString description = fieldDescriptor(item).description;
    return description.isEmpty() ? item : description;
}

QString LimitsParser::typeToolTip(const QString &type)
{
    static const QHash<QString, QString> toolTips = {
        {QStringLiteral("soft"),
         i18n("This is the soft resource limit.<br>"
              "This type of limits is used by default and can be changed by the user.")},
        {QStringLiteral("hard"),
         i18n("This is the hard resource limit.<br>"
              "The user cannot raise his requirement of system resource above this value.")},
        {QStringLiteral("-"),
         i18n("Enforcing both soft and hard resource limits together.<br>"
              "This means, that this limit is used by default and cannot be changed upward by user.")},
    };
    return toolTips.value(type, type);
}

QString LimitsParser::domainToolTip(const QString &domain)
{
    QString users = userIdsToolTip(userIds(domain));
    if (!users.isNull()) {
        return users;
    }
    QString groups = groupIdsToolTip(groupIds(domain));
    if (!groups.isNull()) {
        return groups;
    }
    if (domain == QLatin1String("*")) {
        return i18n("All users");
    }
    if (domain.startsWith(QLatin1Char('@'))) {
        return ki18n("Group name: \"%1\"").subs(domain.mid(1)).toString();
    }
    return ki18n("User name: \"%1\"").subs(domain).toString();
}
