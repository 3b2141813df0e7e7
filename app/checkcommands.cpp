/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "checkcommands.h"

#include <UserUtils>

#include <KLocalizedString>

#include <QRegularExpressionValidator>

#include <limits>
#include <memory>

namespace
{
constexpr int longestName = 32;
constexpr int anyLength = std::numeric_limits<int>::max();

struct Answer {
    QString word;
    int exitStatus;
};

Answer answer(QValidator::State state)
{
    switch (state) {
    case QValidator::Acceptable:
        return {i18n("accepted"), 0};
    case QValidator::Intermediate:
        return {i18n("unfinished"), 1};
    case QValidator::Invalid:
        break;
    }
    return {i18n("rejected"), 2};
}

/** The text that the validator's expression is matched with has to fit as a whole. */
QString rule(const QValidator *validator)
{
    const auto *expression = qobject_cast<const QRegularExpressionValidator *>(validator);
    return i18n("the whole text has to match %1", expression->regularExpression().pattern());
}

int check(QString text, QValidator *(*createValidator)(QObject *), int longest)
{
    const std::unique_ptr<QValidator> validator(createValidator(nullptr));
    int position = 0;
    const auto [word, exitStatus] = answer(validator->validate(text, position));
    const QString reason =
        text.size() > longest ? i18n("a name has at most %1 characters", longest) : rule(validator.get());
    const int printed = print(QStringLiteral("%1: %2\n").arg(word, reason));
    return printed == Success ? exitStatus : printed;
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
