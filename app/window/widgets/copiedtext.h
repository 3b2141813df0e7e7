/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef COPIEDTEXT_H
#define COPIEDTEXT_H

#include <QClipboard>

/**
 * What is copied out of labels and help texts goes to other programs, for which the marks of the reading order
 * are not meant: a path with them would name another file.
 */
namespace CopiedText
{
/** From now on, what this program copies or selects has no marks, as long as @p context lives. */
void removeMarks(QObject *context);
}

#endif
