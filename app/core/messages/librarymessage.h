/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIBRARYMESSAGE_H
#define LIBRARYMESSAGE_H

#include <QString>

/**
 * The text to show for @p message, which the library or Qt logged: messages of the library in words
 * of the application, empty for what is of no use to people, others unchanged.
 */
QString meaningOfMessage(const QString &message);

#endif
