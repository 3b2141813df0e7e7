/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef WINDOWSTATE_H
#define WINDOWSTATE_H

class MainWindow;

/** How the operator left the window: its place, page, borders and filters. */
namespace WindowState
{
void save(const MainWindow &window);
void restore(MainWindow &window);
}

#endif
