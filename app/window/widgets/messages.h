/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef MESSAGES_H
#define MESSAGES_H

#include <KMessageWidget>

/** Messages that a page shows for as long as they are true, and those of dialogs. */
namespace Messages
{
/** A message that is not shown yet. */
KMessageWidget *create(KMessageWidget::MessageType type, QWidget *parent);

/** Shows @p text as plain text; hides the message when it is empty. */
void show(KMessageWidget &message, const QString &text);

/** Tells in a dialog that a file could not be written. */
void reportUnwritten(QWidget *parent, const QString &title, const QString &path, const QString &error);
}

#endif
