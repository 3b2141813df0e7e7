/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PLAINTEXT_H
#define PLAINTEXT_H

#include "readingorder.h"

#include <QString>

class QLabel;
class QWidget;

/** Texts from account files must not be taken for rich text by widgets that guess the format. */
namespace PlainText
{
/** Rich text that shows the sentences of @p text as they are, in lines as long as fit. A line end begins a new one. */
inline QString toRichText(const QString &text)
{
    const QString escaped =
        ReadingOrder::ofSentence(text).toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
    return QLatin1String("<qt>") + escaped + QLatin1String("</qt>");
}

/** A label that shows any text as it is, in lines as long as fit. */
QLabel *createLabel(const char *name, QWidget *parent);
}

#endif
