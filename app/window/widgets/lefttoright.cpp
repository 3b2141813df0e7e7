/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "lefttoright.h"

#include "visibletext.h"

#include <QGuiApplication>
#include <QRegularExpression>

namespace
{
constexpr QChar leftToRightEmbedding(0x202a);
constexpr QChar popDirectionalFormatting(0x202c);
}

QString LeftToRight::embed(const QString &text)
{
    if (!QGuiApplication::isRightToLeft()) {
        return text;
    }
    if (!text.isRightToLeft()) {
        return leftToRightEmbedding + text + popDirectionalFormatting;
    }
    static const QRegularExpression number(QStringLiteral("([-+]?[0-9]+)"));
    QString embedded = text;
    return embedded.replace(number, leftToRightEmbedding + QLatin1String("\\1") + popDirectionalFormatting);
}

Qt::Alignment LeftToRight::lineStart()
{
    return Qt::AlignAbsolute | (QGuiApplication::isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
}

QString LeftToRight::Delegate::displayText(const QVariant &value, const QLocale & /*locale*/) const
{
    return embed(VisibleText::fromText(value.toString()));
}
