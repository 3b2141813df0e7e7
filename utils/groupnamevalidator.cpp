/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "groupnamevalidator_p.h"

#include "namelength_p.h"

GroupNameValidator::~GroupNameValidator() = default;

QValidator::State GroupNameValidator::validate(QString &input, int &pos) const
{
    return isNameTooLong(input) ? Invalid : QRegularExpressionValidator::validate(input, pos);
}
