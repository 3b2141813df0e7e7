/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef MESSAGEHANDLER_H
#define MESSAGEHANDLER_H

#include <QStringList>

/** What the library and Qt log, in words for people. */
namespace MessageHandler
{
/**
 * Gives each message to @p show once, in the thread that logs it: a missing administrators group is
 * logged for every account. What is fatal to Qt, as a display that cannot be reached, ends the program
 * without a core dump.
 */
void install(void (*show)(const QString &text));
}

/** Gathers messages while it lives, instead of letting them be shown. The handler has to be installed. */
class GatheredMessages
{
public:
    GatheredMessages();
    ~GatheredMessages();

    /** Each message once, in the order in which they came. */
    QStringList texts() const;

private:
    Q_DISABLE_COPY(GatheredMessages)

    QStringList m_texts;
    QStringList *m_previous;
};

#endif
