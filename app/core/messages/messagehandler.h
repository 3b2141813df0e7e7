/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef MESSAGEHANDLER_H
#define MESSAGEHANDLER_H

#include <QString>

/** What the library and Qt log, in words for people. */
namespace MessageHandler
{
/**
 * Passes each message to @p show, in the thread that logs it, but only once: a missing administrators
 * group is logged for every account. Fatal errors of Qt, such as a display that cannot be reached, end
 * the program without a core dump.
 */
void install(void (*show)(const QString &text));
}

#endif
