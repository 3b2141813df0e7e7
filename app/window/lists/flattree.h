/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef FLATTREE_H
#define FLATTREE_H

class QTreeView;

/** Sets @p view up for a flat list: rows of equal height without children. */
void setUpFlatTree(QTreeView &view);

#endif
