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

/** The verdict of a validator of the library on a text, and the rule behind it. */
struct InputCheck {
    QValidator::State state = QValidator::Acceptable;
    /** The regular expression that the whole text has to match. */
    QString pattern;
    /** The longest accepted length if the text exceeds it; otherwise anyLength. */
    int exceededLength = anyLength;

    /** For example "rejected: a name has at most 32 characters". */
    QString toString() const;

    /** The same with the rule in words, @p rule. */
    QString toString(const QString &rule) const;
};

/** Checks @p text, which may have at most @p longest characters, with one of the library's validators. */
InputCheck checkInput(const QValidator &validator, QString text, int longest);

#endif
