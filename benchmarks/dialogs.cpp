/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "accountsetup.h"
#include "comparison.h"
#include "dialogsetup.h"

#include <UserListModel>
#include <UserSelectDialog>

using benchmark::State;

namespace
{
void openDialog(State &state)
{
    prepareAccounts(state);
    measure(state, [] {
        UserSelectDialog dialog;
        return paint(dialog);
    });
}

void openDialogOfGroup(State &state)
{
    prepareAccounts(state);
    const GroupInfo group = sharedGroup();
    measure(state, [&group] {
        UserSelectDialog dialog(group, group.users());
        return paint(dialog);
    });
}

void constructModel(State &state)
{
    prepareAccounts(state);
    measure(state, [] { return UserListModel(GroupInfo(), {}).rowCount(); });
}

void constructModelOfGroup(State &state)
{
    prepareAccounts(state);
    const GroupInfo group = sharedGroup();
    measure(state, [&group] { return UserListModel(group, group.users()).rowCount(); });
}

}

Comparisons dialogComparisons()
{
    return {
        {"firstPaint",
         "first paint of a `UserSelectDialog`",
         "constructing its `UserListModel`",
         {1.5, 1000},
         "",
         {100, 1000},
         benchmark::oNone,
         openDialog,
         constructModel},
        {"firstPaintOfGroup",
         "first paint of a `UserSelectDialog` for a group",
         "constructing its `UserListModel`",
         {1.5, 1000},
         "#dialogs-with-a-group",
         {100, 1000, 10000},
         benchmark::oNone,
         openDialogOfGroup,
         constructModelOfGroup},
    };
}
