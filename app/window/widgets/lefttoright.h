/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LEFTTORIGHT_H
#define LEFTTORIGHT_H

#include <QString>
#include <QStyledItemDelegate>

/**
 * Names, paths and numbers are read from left to right in every language. Between words that are
 * read from right to left, a sign at their beginning would move to their end: "-1" would be "1-".
 */
namespace LeftToRight
{
/**
 * @p text with marks that keep its order, or that of the numbers in it when it begins with a word
 * that is read from right to left; the same text when all of it is read from left to right.
 */
QString embed(const QString &text);

/** The side where lines begin, whatever their text. Labels by themselves go by the text. */
Qt::Alignment lineStart();

/**
 * Draws cells with their order kept, and with signs in the place of characters that act on what is beside them. Ids
 * have the same digits as in the files.
 */
class Delegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant &value, const QLocale &locale) const override;
};
}

#endif
