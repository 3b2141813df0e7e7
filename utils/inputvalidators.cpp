/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "userutils.h"

#include "adduserconf_p.h"
#include "groupnamevalidator_p.h"
#include "usernamevalidator_p.h"

#include <QRegularExpression>

QValidator *UserUtils::createUserNameValidator(QObject *parent)
{
    QString pattern = adduserNamePattern();
    if (pattern.isEmpty()) {
        pattern = QStringLiteral("[a-z][a-z0-9\\_\\-]*");
    }
    return new UserNameValidator(QRegularExpression(pattern), parent);
}

QValidator *UserUtils::createGroupNameValidator(QObject *parent)
{
    static const QRegularExpression expression(QStringLiteral("[a-z_][a-z0-9_-]*[$]?"));
    return new GroupNameValidator(expression, parent);
}

QValidator *UserUtils::createGecosValidator(QObject *parent)
{
    static const QRegularExpression expression(QStringLiteral("[^,]*(,[^,]*(,[^,]*(,[^,]*(,[^,]*)?)?)?)?"));
    return new QRegularExpressionValidator(expression, parent);
}
