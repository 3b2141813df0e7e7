/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "inputcheck.h"

#include <KLocalizedString>

#include <QRegularExpressionValidator>

namespace
{
QString word(QValidator::State state)
{
    switch (state) {
    case QValidator::Acceptable:
        return i18n("accepted");
    case QValidator::Intermediate:
        return i18n("unfinished");
    case QValidator::Invalid:
        break;
    }
    return i18n("rejected");
}
}

QString InputCheck::toString() const
{
    return toString(exceededLength == anyLength ? i18n("the whole text has to match %1", pattern)
                                                : i18n("a name has at most %1 characters", exceededLength));
}

QString InputCheck::toString(const QString &rule) const
{
    return i18nc("'accepted', 'unfinished' or 'rejected', and the rule", "%1: %2", word(state), rule);
}

InputCheck checkInput(const QValidator &validator, QString text, int longest)
{
    InputCheck check;
    const auto *expression = qobject_cast<const QRegularExpressionValidator *>(&validator);
    check.pattern = expression->regularExpression().pattern();
    check.exceededLength = text.size() > longest ? longest : anyLength;
    int position = 0;
    check.state = validator.validate(text, position);
    return check;
}
