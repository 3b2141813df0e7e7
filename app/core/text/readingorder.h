/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef READINGORDER_H
#define READINGORDER_H

#include <QString>

/**
 * Names, paths, options and numbers are read from left to right in every language. Between words that are
 * read from right to left, a sign at their beginning would move to their end: "/etc" would be "etc/".
 * Invisible marks prevent that. They are for widgets only; VisibleText would take them for hostile text.
 */
namespace ReadingOrder
{
/** @p text with marks that keep it together within a text of the other direction. */
QString isolated(const QString &text);

/** The same for @p text that is read from left to right whatever is in it, such as a regular expression. */
QString leftToRight(const QString &text);

/**
 * @p value, such as a path or a full name, with marks that keep its order; if it begins with a word that is read
 * from right to left, those that keep the order of what is not. Unchanged in languages that are read from left to
 * right.
 */
QString ofValue(const QString &value);

/**
 * A translated @p sentence with marks that keep the order of paths, options and numbers in it, and the direction
 * of each line, whatever it begins with. Unchanged in languages that are read from left to right.
 */
QString ofSentence(const QString &sentence);

bool isMark(QChar character);

QString withoutMarks(const QString &text);
}

#endif
