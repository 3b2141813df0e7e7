/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef EDGES_H
#define EDGES_H

#include <QRect>

/** The rectangle with these first and last pixels, as QRect itself counts them. */
inline QRect edges(int left, int top, int right, int bottom)
{
    return {QPoint(left, top), QPoint(right, bottom)};
}

#endif
