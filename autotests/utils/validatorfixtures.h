/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef VALIDATORFIXTURES_H
#define VALIDATORFIXTURES_H

#include "accountfixtures.h"

#include <UserUtils>

#include <QRegularExpressionValidator>
#include <QTest>

#include <memory>

using Factory = QValidator *(*)(QObject *);
Q_DECLARE_METATYPE(Factory)
Q_DECLARE_METATYPE(QValidator::State)
inline constexpr QValidator::State Accepted = QValidator::Acceptable;
inline constexpr QValidator::State Unfinished = QValidator::Intermediate;
inline constexpr QValidator::State Rejected = QValidator::Invalid;

/** The default pattern. */
inline QString fallback()
{
    return QStringLiteral("[a-z][a-z0-9\\_\\-]*");
}

inline QString letters(int count)
{
    return QStringLiteral("a").repeated(count);
}

inline QValidator::State check(Factory create, const QString &text)
{
    const std::unique_ptr<QValidator> validator(create(nullptr));
    QString input = text;
    int pos = 0;
    return validator->validate(input, pos);
}

inline QRegularExpression expressionOf(const QValidator *validator)
{
    const auto *expression = qobject_cast<const QRegularExpressionValidator *>(validator);
    return expression ? expression->regularExpression() : QRegularExpression(QStringLiteral("no regular expression"));
}

inline QString patternOf(const QValidator *validator)
{
    return expressionOf(validator).pattern();
}

/** The pattern of a new validator for user names. */
inline QString namePattern()
{
    const std::unique_ptr<QValidator> validator(UserUtils::createUserNameValidator(nullptr));
    return patternOf(validator.get());
}

struct Check {
    const char *text;
    QValidator::State state;
};

template<int count>
void addRows(const Check (&checks)[count])
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QValidator::State>("state");
    for (const Check &check : checks) {
        QTest::addRow("'%s'", check.text) << QString::fromUtf8(check.text) << check.state;
    }
}

inline void addNameFactories()
{
    QTest::addColumn<Factory>("create");
    QTest::newRow("user name") << Factory(UserUtils::createUserNameValidator);
    QTest::newRow("group name") << Factory(UserUtils::createGroupNameValidator);
}

inline void addFactories()
{
    addNameFactories();
    QTest::newRow("GECOS") << Factory(UserUtils::createGecosValidator);
}

#endif
