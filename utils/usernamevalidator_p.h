/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERNAMEVALIDATOR_P_H
#define USERNAMEVALIDATOR_P_H

#include <QRegularExpressionValidator>

/** Accepts user names that match an expression and are not too long. */
class UserNameValidator : public QRegularExpressionValidator
{
public:
    using QRegularExpressionValidator::QRegularExpressionValidator;
    ~UserNameValidator() override;

    State validate(QString &input, int &pos) const override;
};

#endif
