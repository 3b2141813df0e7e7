/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef BOTHDIALOGS_H
#define BOTHDIALOGS_H

#include "bothkinds.h"
#include "dialogkinds.h"

/** A user, and the group of the same name. */
inline QString bob()
{
    return text("bob");
}

/** Users and groups for the dialogs. */
inline void setDialogAccounts()
{
    setUsersAndGroups({
        {"root", 0},
        {"ormel-admin", 27},
        {"a-system-account-of-a-very-long-name", 900},
        {"bob", 1002},
        {"adam", 1000},
        {"Zed", 1001},
        {"a.b", 1003},
    });
}

/** Runs @p test with a dialog that was constructed without arguments. */
template<typename Test>
void withDialog(const Test &test)
{
    withKind<PickedUsers, PickedGroups>([&test](auto kind) {
        DialogOf<decltype(kind)> dialog;
        test(kind, dialog);
    });
}

/** Runs @p test with a dialog for bob in which @p names, separated by blanks, are checked. */
template<typename Test>
void withDialogForBob(const char *names, const Test &test)
{
    withKind<PickedUsers, PickedGroups>([names, &test](auto kind) {
        DialogOf<decltype(kind)> dialog(kind.lockedBy(bob()), words(names));
        test(kind, dialog);
    });
}

#endif
