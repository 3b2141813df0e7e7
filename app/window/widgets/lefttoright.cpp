/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "lefttoright.h"

#include "readingorder.h"
#include "visibletext.h"

#include <QGuiApplication>

Qt::Alignment LeftToRight::lineStart()
{
    return Qt::AlignAbsolute | (QGuiApplication::isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
}

QString LeftToRight::Delegate::displayText(const QVariant &value, const QLocale & /*locale*/) const
{
    return ReadingOrder::ofValue(VisibleText::fromText(value.toString()));
}

QString LeftToRight::SentenceDelegate::displayText(const QVariant &value, const QLocale & /*locale*/) const
{
    return ReadingOrder::ofSentence(VisibleText::fromText(value.toString()));
}
