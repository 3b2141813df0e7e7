/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "describe.h"

namespace
{
QString field(const QString &text)
{
    return text.isNull() ? QStringLiteral("null") : text;
}
}

QString describe(const GroupInfo &group)
{
    return QStringLiteral("%1(%2: %3)")
        .arg(field(group.name()), QString::number(group.gid()), group.users().join(QLatin1Char(' ')));
}

QString describe(const UserInfo &user)
{
    const QStringList fields{
        field(user.name()),
        QString::number(user.uid()),
        QString::number(user.gid()),
        field(user.gecos()),
        field(user.home()),
        field(user.shell()),
        QStringLiteral("primary %1").arg(describe(user.primaryGroup())),
        QStringLiteral("groups %1").arg(describe(user.groups()).join(QLatin1String(", "))),
        user.isOrmelAdmin() ? QStringLiteral("admin") : QStringLiteral("no admin"),
    };
    return fields.join(QLatin1String(" | "));
}

QString describe(const LimitsParser::Field &rule)
{
    const QStringList fields{
        field(rule.domain),
        field(rule.type),
        field(rule.item),
        describe(rule.value),
        QString::number(rule.valueType),
    };
    return fields.join(QLatin1String(" | "));
}

QString describe(const LimitsParser::FieldDescriptor &descriptor)
{
    const QStringList fields{
        QString::number(descriptor.minValue),
        QString::number(descriptor.maxValue),
        QString::number(descriptor.valueType),
        descriptor.hardOnly ? QStringLiteral("hard only") : QStringLiteral("any type"),
        field(descriptor.defaultType),
        field(descriptor.description),
    };
    return fields.join(QLatin1String(" | "));
}

QString describe(const QVariant &value)
{
    return value.isNull() ? QStringLiteral("null")
                          : QStringLiteral("%1 %2").arg(QLatin1String(value.typeName()), value.toString());
}
