/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef ACCOUNTDIALOGS_H
#define ACCOUNTDIALOGS_H

#include "waitcursor.h"

class QDialog;
class QPixmap;
class UserIconDialog;

/** The dialogs of the library as an operator meets them here. */
namespace AccountDialogs
{
/** Sorts the list by name, which is upside down at first, and names what has no name for screen readers. */
void prepareSelection(QDialog &dialog);

/** Makes a dialog that selects users or groups, under the wait cursor. */
template<typename Dialog, typename... Arguments>
std::unique_ptr<Dialog> makeSelection(Arguments &&...arguments)
{
    auto dialog = makeDialog<Dialog>(std::forward<Arguments>(arguments)...);
    prepareSelection(*dialog);
    return dialog;
}

/** Gives the picture in @p dialog a name and a role for screen readers. */
void prepareIcon(UserIconDialog &dialog);

/**
 * Lets the operator cut an icon out of @p picture or, if that is null, out of a file that is asked for at once.
 *
 * @return false when the operator cancels
 */
bool cutIcon(QPixmap &picture, QWidget *parent);
}

#endif
