/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef INPUTCHECK_H
#define INPUTCHECK_H

#include <QString>
#include <QValidator>

#include <limits>

constexpr int longestName = 32;
constexpr int anyLength = std::numeric_limits<int>::max();

/** What a validator of the library says of a text, and by which rule. */
struct InputCheck {
    QValidator::State state = QValidator::Acceptable;
    /** The regular expression that the text has to match as a whole. */
    QString pattern;
    /** How many characters there may be, when there are more; otherwise anyLength. */
    int exceededLength = anyLength;

    /** For example "rejected: a name has at most 32 characters". */
    QString toString() const;

    /** The same with @p rule, which says in words what the rule is. */
    QString toString(const QString &rule) const;
};

/** Checks @p text, which is to have at most @p longest characters, with one of the library's validators. */
InputCheck checkInput(const QValidator &validator, QString text, int longest);

#endif
