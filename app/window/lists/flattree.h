/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef FLATTREE_H
#define FLATTREE_H

class QTreeView;

/** Sets @p view up for rows without rows below them, of equal height and as one piece each. */
void setUpFlatTree(QTreeView &view);

#endif
