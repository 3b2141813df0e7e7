/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "checkcommands.h"

#include "inputcheck.h"

#include <UserUtils>

#include <memory>

namespace
{
int exitStatus(QValidator::State state)
{
    switch (state) {
    case QValidator::Acceptable:
        return 0;
    case QValidator::Intermediate:
        return 1;
    case QValidator::Invalid:
        break;
    }
    return 2;
}

int check(const QString &text, QValidator *(*createValidator)(QObject *), int longest)
{
    const std::unique_ptr<QValidator> validator(createValidator(nullptr));
    const InputCheck result = checkInput(*validator, text, longest);
    const int printed = print(QString(result.toString() + QLatin1Char('\n')));
    return printed == Success ? exitStatus(result.state) : printed;
}
}

int checkName(const QCommandLineParser & /*options*/, const QString &operand)
{
    return check(operand, UserUtils::createUserNameValidator, longestName);
}

int checkGroup(const QCommandLineParser & /*options*/, const QString &operand)
{
    return check(operand, UserUtils::createGroupNameValidator, longestName);
}

int checkGecos(const QCommandLineParser & /*options*/, const QString &operand)
{
    return check(operand, UserUtils::createGecosValidator, anyLength);
}
