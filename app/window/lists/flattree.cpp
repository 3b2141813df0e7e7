/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "flattree.h"

#include <QTreeView>

void setUpFlatTree(QTreeView &view)
{
    view.setRootIsDecorated(false);
    view.setItemsExpandable(false);
    view.setUniformRowHeights(true);
    view.setAllColumnsShowFocus(true);
    view.setAlternatingRowColors(true);
}
