/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LEFTTORIGHT_H
#define LEFTTORIGHT_H

#include <QStyledItemDelegate>

/** How texts are laid out whose direction is not that of the language. */
namespace LeftToRight
{
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

/** The same for cells with sentences. */
class SentenceDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant &value, const QLocale &locale) const override;
};
}

#endif
