/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIBRARYMESSAGE_H
#define LIBRARYMESSAGE_H

#include <QString>

/**
 * What @p message, which the library or Qt logged, means to people: in words of the application where
 * it is the library's, empty where it tells them nothing, and the message itself otherwise.
 */
QString meaningOfMessage(const QString &message);

#endif
