/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LEFTTORIGHT_H
#define LEFTTORIGHT_H

#include <QString>
#include <QStyledItemDelegate>

/**
 * Names, paths and numbers read from the left to the right in every language. Between words that
 * are read from the right, a sign at their beginning would move to their end: "-1" would be "1-".
 */
namespace LeftToRight
{
/**
 * @p text with what keeps its order, or that of the numbers in it when it begins with a word that is
 * read from the right; the same text where all is read from the left.
 */
QString embed(const QString &text);

/** Where lines begin, whatever their text; labels look at the text. */
Qt::Alignment lineStart();

/**
 * Draws cells with their texts embedded, and with signs in the place of characters that act on what is beside them.
 * Ids have the digits that they have in the files.
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
