/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef MESSAGES_H
#define MESSAGES_H

#include <KMessageWidget>

/** Messages that stand in a page as long as what they tell holds. */
namespace Messages
{
/** A message that is not shown yet. */
KMessageWidget *create(KMessageWidget::MessageType type, QWidget *parent);

/** Shows @p text, which is plain; nothing when it is empty. */
void show(KMessageWidget &message, const QString &text);
}

#endif
