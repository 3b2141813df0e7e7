/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef WINDOWCOMMAND_H
#define WINDOWCOMMAND_H

/** Shows the main window, as the operator left it last time, until it is closed; the exit status. */
int openWindow();

#endif
