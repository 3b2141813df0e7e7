/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef GROUPNAMEVALIDATOR_P_H
#define GROUPNAMEVALIDATOR_P_H

#include <QRegularExpressionValidator>

/** Accepts group names that match an expression and are not too long. */
class GroupNameValidator : public QRegularExpressionValidator
{
public:
    using QRegularExpressionValidator::QRegularExpressionValidator;
    ~GroupNameValidator() override;

    State validate(QString &input, int &pos) const override;
};

#endif
