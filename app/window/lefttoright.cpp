/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "lefttoright.h"

#include <QGuiApplication>

namespace
{
constexpr QChar leftToRightEmbedding(0x202a);
constexpr QChar popDirectionalFormatting(0x202c);
}

QString LeftToRight::embed(const QString &text)
{
    return QGuiApplication::isRightToLeft() ? leftToRightEmbedding + text + popDirectionalFormatting : text;
}

Qt::Alignment LeftToRight::lineStart()
{
    return Qt::AlignAbsolute | (QGuiApplication::isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
}

QString LeftToRight::Delegate::displayText(const QVariant &value, const QLocale &locale) const
{
    return embed(QStyledItemDelegate::displayText(value, locale));
}
