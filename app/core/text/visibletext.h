/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef VISIBLETEXT_H
#define VISIBLETEXT_H

#include <QString>

class QByteArray;

/**
 * Makes texts of accounts and files safe to show. Users choose some of them: an escape
 * sequence would control a terminal, and a bidirectional override would make one name look
 * like another.
 */
namespace VisibleText
{
/**
 * @p text with a visible sign in the place of each invisible character: control characters, line
 * and paragraph separators, and invisible formatting such as bidirectional controls. The characters
 * that join letters or keep them apart stay, as some scripts need them.
 */
QString fromText(const QString &text);

/**
 * @p json, which is JSON text in UTF-8, with the same characters escaped. It is still parsed to the
 * same values.
 */
QByteArray fromJson(const QByteArray &json);

/**
 * fromText() for use within another text on a widget, with marks that keep the order of both. Where all is read from
 * left to right, there are none.
 */
QString isolated(const QString &text);
}

#endif
